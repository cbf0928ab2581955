#include "ui/toolkit/DriveList.h"

#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "ui/toolkit/Strings.h"

namespace tavel {

DriveList::DriveList(QWidget* parent) : QComboBox(parent) { ListDrives(); }

std::string DriveList::Drive() const { return FromQString(currentText()); }

void DriveList::SetDrive(const std::string& text) {
    ListDrives();
    const int row = RowOf(ToQString(text));
    if (row < 0) Fail(failure::DeviceUnavailable);
    setCurrentIndex(row);
}

void DriveList::showPopup() {
    ListDrives();
    QComboBox::showPopup();
}

// A stick comes and goes while the list stands open to the user; what was chosen stays chosen for
// as long as it is there. Otherwise c: is chosen, the working folder's drive: never another stick.
void DriveList::ListDrives() {
    const QString chosen = currentText();
    clear();
    for (const std::string& text : oFSO().DriveTexts()) addItem(ToQString(text));
    const int row = RowOf(chosen);
    setCurrentIndex(row < 0 ? RowOf(QStringLiteral("c:")) : row);
}

int DriveList::RowOf(const QString& drive) const {
    return drive.isEmpty() ? -1 : findText(drive.left(1), Qt::MatchStartsWith);
}

}  // namespace tavel
