#include "ui/toolkit/TreeView.h"

#include "platform/Failure.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QStyleOptionViewItem>
#include <utility>

namespace tavel {

namespace {

// A third of the way from one colour to the other.
QColor Mixed(const QColor& from, const QColor& to) {
    const auto part = [](int a, int b) { return a + (b - a) / 3; };
    return {part(from.red(), to.red()), part(from.green(), to.green()),
            part(from.blue(), to.blue())};
}

}  // namespace

TreeNode::TreeNode(std::string sKey, bool bRenamable) : m_key(std::move(sKey)) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (bRenamable) setFlags(flags() | Qt::ItemIsEditable);
}

TreeView::TreeView(QWidget* parent) : RowInput(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize({Pixels(240), Pixels(240)});
    setIndentation(Pixels(240));
    setSelectionMode(SingleSelection);
    setEditTriggers(SelectedClicked | EditKeyPressed);

    auto* labels = new LabelDelegate(this);
    setItemDelegate(labels);
    connect(labels, &LabelDelegate::LabelEdited, this,
            [this](const QModelIndex& index, const std::string& sNewText) {
                Q_EMIT LabelEdited(static_cast<TreeNode&>(*itemFromIndex(index)), sNewText);
            });
    connect(this, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { Q_EMIT NodeCollapsed(static_cast<TreeNode&>(*item)); });
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

void TreeView::RemoveChild(TreeNode& parent, int child) {
    if (parent.child(child) == currentItem()) BreakOffEdit();
    Forget(*parent.child(child));
    delete parent.takeChild(child);
}

void TreeView::RemoveAll() {
    m_nodes.clear();
    clear();
}

// Where nothing of this comes before, the tree itself looks: a screen reader doesn't ask us.
void TreeView::ChangeLater(std::function<void()> change) {
    const bool bPosted = m_change != nullptr;
    m_change = std::move(change);
    if (!bPosted)
        QMetaObject::invokeMethod(
            this, [this] { Settle(); }, Qt::QueuedConnection);
}

void TreeView::Settle() {
    if (const auto change = std::exchange(m_change, nullptr)) change();
}

void TreeView::Forget(const QTreeWidgetItem& node) {
    for (int i = 0; i < node.childCount(); ++i) Forget(*node.child(i));
    m_nodes.erase(static_cast<const TreeNode&>(node).Key());
}

TreeNode* TreeView::Find(std::string_view sKey) {
    Settle();
    const auto found = m_nodes.find(std::string(sKey));
    return found == m_nodes.end() ? nullptr : found->second;
}

TreeNode& TreeView::Node(std::string_view sKey) {
    TreeNode* node = Find(sKey);
    if (node == nullptr) Fail(failure::ListElementNotFound);
    return *node;
}

TreeNode* TreeView::Selected() {
    Settle();
    return static_cast<TreeNode*>(currentItem());
}

TreeNode& TreeView::SelectedNode() {
    TreeNode* node = Selected();
    if (node == nullptr) Fail(failure::ObjectNotSet);
    return *node;
}

std::string TreeView::SelectedKey() {
    const TreeNode* node = Selected();
    return node == nullptr ? std::string() : node->Key();
}

void TreeView::Select(TreeNode& node) { setCurrentItem(&node); }

void TreeView::StartLabelEdit() {
    TreeNode& node = SelectedNode();
    if ((node.flags() & Qt::ItemIsEditable) == 0) return;
    scrollToItem(&node);
    editItem(&node);
}

void TreeView::SetMuted(bool bMuted) {
    m_muted = bMuted;
    viewport()->update();
}

void TreeView::initViewItemOption(QStyleOptionViewItem* option) const {
    QTreeWidget::initViewItemOption(option);
    if (!m_muted) return;
    QPalette& palette = option->palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(
            group, QPalette::Highlight,
            Mixed(palette.color(group, QPalette::Base), palette.color(group, QPalette::Highlight)));
        palette.setColor(group, QPalette::HighlightedText, palette.color(group, QPalette::Text));
    }
}

bool TreeView::event(QEvent* event) {
    Settle();
    return RowInput::event(event);
}

bool TreeView::viewportEvent(QEvent* event) {
    Settle();
    return RowInput::viewportEvent(event);
}

void TreeView::CurrentClicked(const QModelIndex& former) {
    const auto* node = static_cast<TreeNode*>(itemFromIndex(former));
    Q_EMIT NodeClicked(SelectedNode(), node == nullptr ? std::string() : node->Key());
}

void TreeView::MenuRequestedOfCurrent(QPoint globalPosition) {
    Q_EMIT MenuRequested(SelectedNode(), globalPosition);
}

void TreeView::RowsDroppedAt(QPoint viewportPosition) {
    TreeNode* node = NodeAt(viewportPosition);
    if (node != nullptr) Q_EMIT RowsDropped(*node);
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) RowInput::mousePressEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::RightButton) return;
    TreeNode* node = NodeAt(event->pos());
    if (node != nullptr) Q_EMIT MenuRequested(*node, event->globalPosition().toPoint());
}

// Moving with a button down would drag the selection along.
void TreeView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) QTreeWidget::mouseMoveEvent(event);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeWidget::mouseDoubleClickEvent(event);
}

// One node is selected, the one that was pressed: letting the button go elsewhere selects nothing.
QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
    const bool bRelease = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    return index.isValid() && !bRelease ? QItemSelectionModel::ClearAndSelect
                                        : QItemSelectionModel::NoUpdate;
}

}  // namespace tavel
