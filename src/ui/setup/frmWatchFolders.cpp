#include "ui/setup/frmWatchFolders.h"

#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "platform/Failure.h"
#include "platform/ProfileService.h"
#include "ui/setup/FolderList.h"
#include "ui/setup/WatchBox.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Twips.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tavel {

namespace {

std::string Stored(const std::string& key, const char* byDefault) {
    std::string text;
    ReadValue(sDBFile, "watch", key, "s", byDefault, text);
    return text;
}

Integer StoredNumber(const std::string& key, const char* byDefault) {
    Integer number = 0;
    ReadValue(sDBFile, "watch", key, "s", byDefault, number);
    return number;
}

void Write(const std::string& key, const std::string& value) {
    WriteValue(sDBFile, "watch", key, "S", value);
}

Integer ChosenDelay(const QComboBox& delays) {
    if (delays.currentIndex() < 0) Fail(failure::InvalidPropertyArrayIndex);
    return ToInteger(delays.currentData().toInt());
}

}  // namespace

frmWatchFolders::frmWatchFolders()
    : QWidget(nullptr, FixedSizeDialog),
      lstFolders(Named<FolderList>("lstFolders", this)),
      chkPhoto(Named<WatchBox>("chkPhoto", QStringLiteral("Photos"))),
      chkMusic(Named<WatchBox>("chkMusic", QStringLiteral("Music"))),
      chkVideo(Named<WatchBox>("chkVideo", QStringLiteral("Videos"))),
      cmbScanDelay(Named<QComboBox>("cmbScanDelay")) {
    setObjectName(QStringLiteral("frmWatchFolders"));
    setWindowTitle(QStringLiteral("Watch Folders"));
    PlaceControls();
    ShowStored();
    setFixedSize(Pixels(7200), heightForWidth(Pixels(7200)));
    connect(lstFolders, &FolderList::Clicked, this, [this] { lstFolders_Click(); });
}

QGroupBox* frmWatchFolders::BoxesFrame() {
    auto* frame =
        Named<QGroupBox>("Frame1", QStringLiteral("Watch the selected folder for..."), this);
    auto* row = new QHBoxLayout(frame);
    for (QCheckBox* box : {chkPhoto, chkMusic, chkVideo}) row->addWidget(box);
    row->addStretch();
    return frame;
}

QGroupBox* frmWatchFolders::DelayFrame() {
    auto* frame = Named<QGroupBox>("Frame2", QStringLiteral("Options"), this);
    auto* Label2 = Named<QLabel>("Label2", QStringLiteral("Scan folders every"), frame);
    Label2->setBuddy(cmbScanDelay);
    cmbScanDelay->setAccessibleName(Label2->text());
    auto* row = new QHBoxLayout(frame);
    row->addWidget(Label2);
    row->addWidget(cmbScanDelay);
    row->addStretch();
    return frame;
}

void frmWatchFolders::PlaceControls() {
    auto* Label1 = Named<QLabel>("Label1",
                                 QStringLiteral("These folders are monitored for new media files "
                                                "at regular intervals, and are automattically "
                                                "added to the DB"),
                                 this);
    Label1->setWordWrap(true);
    Label1->setBuddy(lstFolders);
    lstFolders->setAccessibleName(windowTitle());
    lstFolders->setFixedHeight(Pixels(2700));

    auto* cmdAddFolder = Named<QPushButton>("cmdAddFolder", QStringLiteral("+ Folder"), this);
    auto* cmdDelFolder = Named<QPushButton>("cmdDelFolder", QStringLiteral("-  Folder"), this);
    connect(cmdAddFolder, &QPushButton::clicked, this, [this] { cmdAddFolder_Click(); });
    connect(cmdDelFolder, &QPushButton::clicked, this, [this] { cmdDelFolder_Click(); });

    auto* change = new QHBoxLayout;
    change->addWidget(cmdAddFolder);
    change->addWidget(cmdDelFolder);
    change->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(lstFolders);
    column->addLayout(change);
    column->addWidget(BoxesFrame());
    column->addWidget(DelayFrame());
    column->addLayout(OKAndCancel(
        *this, [this] { cmdOK_Click(); }, [] { SingleWindow<frmWatchFolders>::Unload(); }));
}

void frmWatchFolders::ShowStored() {
    const Integer count = StoredNumber("noofflds", "-1");
    for (Integer i = 0; i < count; ++i) lstFolders->AddItem(Stored(std::to_string(i), "XYZXYZ"));
    for (const auto& [text, minutes] : {std::pair("1 Minute", 1), std::pair("5 Minutes", 5),
                                        std::pair("30 Minutes", 30), std::pair("1 Hour", 60)}) {
        cmbScanDelay->addItem(QLatin1String(text), minutes);
    }
    cmbScanDelay->setCurrentIndex(
        cmbScanDelay->findData(static_cast<int>(StoredNumber("delay", "60"))));
}

void frmWatchFolders::cmdAddFolder_Click() {
    const std::string sFolder =
        BrowseForFolderDlg(this, "", "Please select a folder:", false, false);
    if (sFolder.empty()) return;
    lstFolders->AddItem(sFolder);
    lstFolders->scrollToBottom();
}

void frmWatchFolders::cmdDelFolder_Click() { lstFolders->RemoveSelected(); }

// By the position in the list: a folder that was added since shows what the folder that last had
// its number had.
void frmWatchFolders::lstFolders_Click() {
    const std::string number = std::to_string(lstFolders->Selected());
    SetWatchState(*chkMusic, StoredNumber(number + "Music", "2"));
    SetWatchState(*chkPhoto, StoredNumber(number + "Photo", "2"));
    SetWatchState(*chkVideo, StoredNumber(number + "Video", "2"));
}

void frmWatchFolders::cmdOK_Click() {
    {
        const ProfileBatch atOnce(sDBFile);
        Store();
    }
    SingleWindow<frmWatchFolders>::Unload();
}

// All folders get the same three states, and the numbers above the count stay as they were.
void frmWatchFolders::Store() {
    Write("noofflds", std::to_string(lstFolders->Count()));
    for (int i = 0; i < lstFolders->Count(); ++i) {
        const std::string number = std::to_string(i);
        Write(number, lstFolders->Folder(i));
        Write(number + "Music", std::to_string(WatchState(*chkMusic)));
        Write(number + "Photo", std::to_string(WatchState(*chkPhoto)));
        Write(number + "Video", std::to_string(WatchState(*chkVideo)));
    }
    const Integer delay = ChosenDelay(*cmbScanDelay);
    Write("delay", std::to_string(delay));
    iScanDelay = delay;
}

}  // namespace tavel
