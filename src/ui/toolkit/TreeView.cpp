#include "ui/toolkit/TreeView.h"

#include "platform/Failure.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Strings.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

namespace tavel {

TreeNode::TreeNode(std::string sKey, bool bRenamable) : m_key(std::move(sKey)) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (bRenamable) setFlags(flags() | Qt::ItemIsEditable);
}

std::string TreeNode::Text() const { return FromQString(text(0)); }

TreeView::TreeView(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize({16, 16});
    setIndentation(16);
    setSelectionMode(SingleSelection);
    setEditTriggers(SelectedClicked | EditKeyPressed);

    auto* labels = new LabelDelegate(this);
    setItemDelegate(labels);
    connect(labels, &LabelDelegate::LabelEdited, this,
            [this](const QModelIndex& index, const std::string& sNewText) {
                Q_EMIT LabelEdited(static_cast<TreeNode&>(*itemFromIndex(index)), sNewText);
            });
    connect(this, &QTreeWidget::itemClicked, this, [this] { m_clicked = true; });
    // What a handler selects at the press on an arrow is no click on that node.
    connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
        Q_EMIT NodeCollapsed(static_cast<TreeNode&>(*item));
        m_keyAtPress = SelectedKey();
    });
}

TreeNode& TreeView::AddNode(TreeNode* parent, std::string_view sKey, std::string_view sText,
                            const QIcon& icon, bool bRenamable) {
    if (Find(sKey) != nullptr) Fail(failure::ListKeyNotUnique);
    auto node = std::make_unique<TreeNode>(std::string(sKey), bRenamable);
    node->setText(0, ToQString(sText));
    node->setIcon(0, icon);
    TreeNode& added = *node;
    m_nodes.emplace(sKey, &added);
    if (parent != nullptr) {
        parent->addChild(node.release());
    } else {
        addTopLevelItem(node.release());
    }
    return added;
}

void TreeView::RemoveChildren(TreeNode& node) {
    for (int i = 0; i < node.childCount(); ++i) Forget(*node.child(i));
    for (QTreeWidgetItem* child : node.takeChildren()) delete child;
}

void TreeView::RemoveAll() {
    m_nodes.clear();
    clear();
}

void TreeView::Forget(const QTreeWidgetItem& node) {
    for (int i = 0; i < node.childCount(); ++i) Forget(*node.child(i));
    m_nodes.erase(static_cast<const TreeNode&>(node).Key());
}

TreeNode* TreeView::Find(std::string_view sKey) const {
    const auto found = m_nodes.find(std::string(sKey));
    return found == m_nodes.end() ? nullptr : found->second;
}

TreeNode& TreeView::Node(std::string_view sKey) const {
    TreeNode* node = Find(sKey);
    if (node == nullptr) Fail(failure::ListElementNotFound);
    return *node;
}

TreeNode& TreeView::SelectedNode() const {
    if (Selected() == nullptr) Fail(failure::ObjectNotSet);
    return *Selected();
}

std::string TreeView::SelectedKey() const {
    return Selected() == nullptr ? std::string() : Selected()->Key();
}

void TreeView::Select(TreeNode& node) { setCurrentItem(&node); }

void TreeView::StartLabelEdit() {
    TreeNode& node = SelectedNode();
    if ((node.flags() & Qt::ItemIsEditable) == 0) return;
    scrollToItem(&node);
    editItem(&node);
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_keyAtPress = SelectedKey();
    m_clicked = false;
    QTreeWidget::mousePressEvent(event);
}

// A press selects at once; so the release is a click wherever it happens, or the tree would show a
// node as selected whose list is not on view.
void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        TreeNode* node = NodeAt(event->pos());
        if (node != nullptr) Q_EMIT NodeRightClicked(*node, event->globalPosition().toPoint());
    }
    if (event->button() != Qt::LeftButton) return;
    QTreeWidget::mouseReleaseEvent(event);
    const bool bClicked = std::exchange(m_clicked, false);
    if (Selected() == nullptr) return;
    const std::string sSelectedKey = std::exchange(m_keyAtPress, SelectedKey());
    if (bClicked || sSelectedKey != SelectedKey()) Q_EMIT NodeClicked(*Selected(), sSelectedKey);
}

// Moving with a button down would drag the selection along.
void TreeView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) QTreeWidget::mouseMoveEvent(event);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeWidget::mouseDoubleClickEvent(event);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState) return;
    const std::string sSelectedKey = SelectedKey();
    QTreeWidget::keyPressEvent(event);
    if (sSelectedKey != SelectedKey()) Q_EMIT NodeClicked(*Selected(), sSelectedKey);
}

QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex& index,
                                                               const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TreeView::SetDropTarget(bool bDropTarget) { viewport()->setAcceptDrops(bDropTarget); }

void TreeView::dragEnterEvent(QDragEnterEvent* event) { AcceptDraggedRows(*event); }

void TreeView::dragMoveEvent(QDragMoveEvent* event) { AcceptDraggedRows(*event); }

void TreeView::dropEvent(QDropEvent* event) {
    TreeNode* node = NodeAt(event->position().toPoint());
    if (AcceptDraggedRows(*event) && node != nullptr) Q_EMIT RowsDropped(*node);
}

void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint) {
    QTreeWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

}  // namespace tavel
