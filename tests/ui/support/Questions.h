#pragma once

#include "core/MessageBoxes.h"

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

// What deletes files has No as default.
inline MsgBoxButtons ButtonsOf(const QString& question) {
    return question == fromComputer ? MsgBoxButtons::YesNoDefaultNo : MsgBoxButtons::YesNo;
}

}  // namespace tavel::test
