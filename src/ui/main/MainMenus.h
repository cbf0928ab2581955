#pragma once

#include <QString>
#include <map>

class QAction;
class QMainWindow;
class QMenu;

namespace tavel {

// The menu bar of frmMain and its pop-up menus, each entry by its name.
class MainMenus {
  public:
    explicit MainMenus(QMainWindow& window);

    // The name must be one of the table's.
    QAction& Entry(const char* name) const;
    QMenu& PopUp(const char* name) const;

    // Sets which entries of mnuRMB show over a list of that kind; for a value that is none they
    // stay as they were.
    void FitToList(int iListType);

  private:
    std::map<QString, QAction*> m_entries;
};

}  // namespace tavel
