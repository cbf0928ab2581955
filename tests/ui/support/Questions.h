#pragma once

#include <QString>

namespace tavel::test {

// The words of the deleting commands of frmMain.
inline const QString deleteTitle = QStringLiteral("Delete Group?");
inline const QString fromDB =
    QStringLiteral("This will remove the file(s) from the DB, are you sure?");
inline const QString fromComputer = QStringLiteral(
    "This will remove the file(s) from the DB and from your computer, are you sure?");
inline const QString theGroup =
    QStringLiteral("This will remove the group from the DB, are you sure?");

}  // namespace tavel::test
