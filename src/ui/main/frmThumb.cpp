#include "ui/main/frmThumb.h"

#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "media/Thumbnail.h"
#include "media/ThumbnailPicture.h"
#include "platform/Activity.h"
#include "platform/Text.h"
#include "ui/main/MainLayout.h"
#include "ui/main/MediaFilters.h"
#include "ui/main/ThumbPicture.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>
#include <algorithm>

namespace tavel {

namespace {

// As large as the PSP shows it.
QPixmap LoadThumb(const std::string& sPath) {
    return LoadPicture(sPath).scaled(ThumbWidth, ThumbHeight, Qt::IgnoreAspectRatio,
                                     Qt::SmoothTransformation);
}

// A box that was laid out for less high a text takes a little more room above and below it.
void GrowToText(QLineEdit& box) {
    const int missing = std::max(0, box.sizeHint().height() - box.height());
    box.setGeometry(box.geometry().adjusted(0, -missing / 2, 0, missing - missing / 2));
}

void DeleteNewThumb() {
    if (frmThumb::sNewThumbPath.empty()) return;
    const Doing deleting("Deleting", frmThumb::sNewThumbPath);
    oFSO().DeleteFile(frmThumb::sNewThumbPath, false);
}

// Empty when the user cancels.
std::string PickPicture(QWidget* owner) {
    std::string sFile;
    std::string sFileTitle;
    bool bReadOnly = false;
    std::string sFilter = FilterOfPictures();
    Long iFilterIndex = 1;
    Long iFlags = 0x280000;
    CDLG().VBGetOpenFileName(sFile, sFileTitle, true, false, bReadOnly, true, sFilter, iFilterIndex,
                             "", "Select thumbnail file", "", owner, iFlags);
    return Split(sFile, '\0').front();
}

}  // namespace

frmThumb::frmThumb()
    : QWidget(nullptr, FixedSizeDialog),
      txtPath(Named<QLineEdit>("txtPath", this)),
      imgThumb(Named<ThumbPicture>("imgThumb", this)) {
    setObjectName(QStringLiteral("frmThumb"));
    setWindowTitle(QStringLiteral("Assign Thumbnail"));
    PlaceControls();
    StyleApply(*this, gStyle);
    // Queued: asking for the focus is for when its change is complete.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &frmThumb::KeepFocus,
            Qt::QueuedConnection);
}

void frmThumb::PlaceControls() {
    auto* Label1 = Named<QLabel>("Label1", QStringLiteral("Thumbnail Path"), this);
    auto* cmdBrowse = Named<QPushButton>("cmdBrowse", QStringLiteral("Browse..."), this);
    auto* cmdOK = Named<QPushButton>("cmdOK", QStringLiteral("OK"), this);
    auto* cmdCancel = Named<QPushButton>("cmdCancel", QStringLiteral("Cancel"), this);
    Label1->setBuddy(txtPath);
    txtPath->setAccessibleName(Label1->text());

    setFixedSize(Pixels(7350), Pixels(3015));
    Place(*Label1, {240, 720, 1695, 255});
    Place(*txtPath, {240, 1080, 3135, 285});
    Place(*cmdBrowse, {240, 1440, 1095, 375});
    GrowToText(*txtPath);
    Place(*imgThumb, {4560, 240, 2655, 1815});
    Place(*cmdOK, {3960, 2400, 1575, 495});
    Place(*cmdCancel, {5640, 2400, 1575, 495});

    connect(cmdBrowse, &QPushButton::clicked, this, &frmThumb::cmdBrowse_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmThumb::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmThumb::cmdCancel_Click);
    SetEnterButton(*this, *cmdOK);
    SetEscapeButton(*this, *cmdCancel);
    txtPath->setFocus();
}

void frmThumb::GetNewThumbPath(const std::string& sCurrent, const std::vector<std::string>& sIDs) {
    sThumbIDs = sIDs;
    const std::string sPath = sCurrent.empty() ? NoThumbFile() : sCurrent;
    const Doing showing("Showing", sPath);
    imgThumb->setPixmap(LoadThumb(sPath));
    if (!sCurrent.empty()) txtPath->setText(ToQString(sCurrent));
    ShowDialog(*this);
    activateWindow();
}

// From the program's other windows; a box, a menu and another program have it in their turn.
void frmThumb::KeepFocus() {
    const QWindow* focused = QGuiApplication::focusWindow();
    const bool isOthers = focused != nullptr && focused != windowHandle() &&
                          focused->type() != Qt::Popup &&
                          QApplication::activeModalWidget() == nullptr;
    if (isOthers) activateWindow();
}

// What was made before goes first, even when nothing is picked then.
void frmThumb::cmdBrowse_Click() {
    DeleteNewThumb();
    const std::string sPath = PickPicture(this);
    if (Trim(sPath).empty()) return;
    const Doing making("Making a thumbnail of", sPath);
    sNewThumbPath = ConvertToTHM(sPath);
    imgThumb->setPixmap(LoadThumb(sNewThumbPath));
    txtPath->setText(ToQString(sPath));
}

// The text of the box tells no more than whether there is to be a thumbnail.
void frmThumb::cmdOK_Click() {
    const bool bNone = Trim(FromQString(txtPath->text())).empty();
    for (const std::string& sID : sThumbIDs)
        colVideo.Item(sID).sThumbPath = bNone ? std::string() : sNewThumbPath;
    SingleWindow<frmMain>::Get().LoadThumbnail(sThumbIDs[0]);
    SingleWindow<frmThumb>::Unload();
}

void frmThumb::cmdCancel_Click() {
    DeleteNewThumb();
    SingleWindow<frmThumb>::Unload();
}

}  // namespace tavel
