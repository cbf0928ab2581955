#pragma once

#include <QTreeWidget>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavel {

// A node of a TreeView, owned by its tree. Removing a node ends every reference to it.
class TreeNode : public QTreeWidgetItem {
  public:
    TreeNode(std::string sKey, bool bRenamable);

    const std::string& Key() const { return m_key; }
    std::string Text() const;
    TreeNode* Parent() const { return static_cast<TreeNode*>(parent()); }  // null for a root

  private:
    const std::string m_key;
};

// A tree of keyed nodes, of which one at a time is selected.
//
// Failures: 35601 for a key that no node has, 35602 for a key that a node has already, 91 when the
// selected node is asked for and there is none.
class TreeView : public QTreeWidget {
    Q_OBJECT

  public:
    explicit TreeView(QWidget* parent = nullptr);

    // As the last child of the parent, or as a root for none.
    TreeNode& AddNode(TreeNode* parent, std::string_view sKey, std::string_view sText,
                      const QIcon& icon, bool bRenamable = false);
    void RemoveChildren(TreeNode& node);
    void RemoveAll();

    TreeNode* Find(std::string_view sKey) const;  // null when no node has the key
    TreeNode& Node(std::string_view sKey) const;

    TreeNode& SelectedNode() const;
    std::string SelectedKey() const;  // empty when no node is selected
    void Select(TreeNode& node);      // is no click

    void StartLabelEdit();  // of the selected node, if it is a renamable one
    void SetDropTarget(bool bDropTarget);

  Q_SIGNALS:
    // The user has clicked the node, or moved to it by keyboard. sSelectedKey is the key of the
    // node that was selected before. The arrow in front of a node is no part of it.
    void NodeClicked(tavel::TreeNode& node, const std::string& sSelectedKey);
    void NodeRightClicked(tavel::TreeNode& node, QPoint globalPosition);  // selects nothing
    void NodeCollapsed(tavel::TreeNode& node);
    void LabelEdited(tavel::TreeNode& node, const std::string& sNewText);
    void RowsDropped(tavel::TreeNode& node);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    TreeNode* Selected() const { return static_cast<TreeNode*>(currentItem()); }
    TreeNode* NodeAt(QPoint position) const { return static_cast<TreeNode*>(itemAt(position)); }
    void Forget(const QTreeWidgetItem& node);

    std::unordered_map<std::string, TreeNode*> m_nodes;
    std::string m_keyAtPress;
    bool m_clicked = false;
};

}  // namespace tavel
