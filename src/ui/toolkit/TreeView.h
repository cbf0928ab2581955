#pragma once

#include "ui/toolkit/RowInput.h"

#include <QTreeWidget>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavel {

// A node of a TreeView, owned by its tree. Removing a node ends every reference to it.
class TreeNode : public QTreeWidgetItem {
  public:
    TreeNode(std::string sKey, bool bRenamable);

    const std::string& Key() const { return m_key; }
    TreeNode* Parent() const { return static_cast<TreeNode*>(parent()); }  // null for a root

  private:
    const std::string m_key;
};

// A tree of keyed nodes, of which one at a time is selected.
//
// Failures: 35601 for a key that no node has, 35602 for a key that a node has already, 91 when the
// selected node is asked for and there is none.
class TreeView : public RowInput<QTreeWidget> {
    Q_OBJECT

  public:
    explicit TreeView(QWidget* parent = nullptr);

    // As the last child of the parent, or as a root for none.
    TreeNode& AddNode(TreeNode* parent, std::string_view sKey, std::string_view sText,
                      const QIcon& icon, bool bRenamable = false);
    void RemoveChild(TreeNode& parent, int child);  // counts from 0; with all below it
    void RemoveAll();

    // Changes the nodes once, before anybody looks: before the tree is painted, takes input or is
    // asked for a node. A change that is given before that takes the place of the former one.
    void ChangeLater(std::function<void()> change);

    TreeNode* Find(std::string_view sKey);  // null when no node has the key
    TreeNode& Node(std::string_view sKey);

    TreeNode& SelectedNode();
    std::string SelectedKey();    // empty when no node is selected
    void Select(TreeNode& node);  // is no click

    void StartLabelEdit();  // of the selected node, if it is a renamable one

    // A muted tree shows its selected node in a weaker colour: another tree's is the one that
    // counts.
    void SetMuted(bool bMuted);

  Q_SIGNALS:
    // The user has pressed the left button on the node, or moved to it by keyboard. sSelectedKey is
    // the key of the node that was selected before. The arrow in front of a node is no part of it.
    void NodeClicked(tavel::TreeNode& node, const std::string& sSelectedKey);
    // A right click on the node, which selects nothing, or the Menu key on the selected one.
    void MenuRequested(tavel::TreeNode& node, QPoint globalPosition);
    void NodeCollapsed(tavel::TreeNode& node);
    void LabelEdited(tavel::TreeNode& node, const std::string& sNewText);
    void RowsDropped(tavel::TreeNode& node);

  protected:
    void CurrentClicked(const QModelIndex& former) override;
    void MenuRequestedOfCurrent(QPoint globalPosition) override;
    void RowsDroppedAt(QPoint viewportPosition) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    TreeNode* Selected();
    TreeNode* NodeAt(QPoint position) const { return static_cast<TreeNode*>(itemAt(position)); }
    void Forget(const QTreeWidgetItem& node);
    void Settle();

    std::unordered_map<std::string, TreeNode*> m_nodes;
    std::function<void()> m_change;
    bool m_muted = false;
};

}  // namespace tavel
