#include "ui/setup/frmOptions.h"

#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "platform/ProfileService.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/FramePlace.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Twips.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

namespace tavel {

namespace {

QGroupBox* Frame(const char* name, const QString& title, const QList<QCheckBox*>& boxes) {
    auto* frame = Named<QGroupBox>(name, title);
    auto* column = new QVBoxLayout(frame);
    for (QCheckBox* box : boxes) column->addWidget(box);
    return frame;
}

void WriteFlag(const char* key, const QCheckBox& box) {
    WriteValue(sDBFile, "options", key, "S", box.isChecked() ? "1" : "0");
}

}  // namespace

frmOptions::frmOptions()
    : QWidget(nullptr, FixedSizeDialog),
      tbsOptions(Named<QTabBar>("tbsOptions", this)),
      chkGeneral_ZipGroup(Named<QCheckBox>(
          "chkGeneral_ZipGroup", QStringLiteral("Create a group when adding a zip file"))),
      chkScan_AutoGroup(Named<QCheckBox>(
          "chkScan_AutoGroup", QStringLiteral("Create groups from the scanned folder structure"))),
      chkScan_ScanOnStart(Named<QCheckBox>("chkScan_ScanOnStart",
                                           QStringLiteral("Perform a scan when Tavel is started"))),
      chkScan_Hidden(
          Named<QCheckBox>("chkScan_Hidden", QStringLiteral("Add \"Hidden\" files to the DB"))) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));
    AddTabs();
    AddPanels();
    PlaceControls();
    tbsOptions_Click();
    // Exactly Control: with Shift as well nothing happens.
    auto* next = new QShortcut(Qt::CTRL | Qt::Key_Tab, this);
    connect(next, &QShortcut::activated, this, [this] { SelectNextTab(); });

    PlaceByFrame(*this, [this] { CentreOnScreen(); });
    ShowFlags();
}

void frmOptions::AddTabs() {
    const auto add = [this](const char* key, const QString& caption, const QString& tip) {
        const int tab = tbsOptions->addTab(caption);
        tbsOptions->setTabData(tab, QLatin1String(key));
        tbsOptions->setTabToolTip(tab, tip);
    };
    tbsOptions->setAccessibleName(windowTitle());
    tbsOptions->setExpanding(false);
    add("general", QStringLiteral("General"), QStringLiteral("General Tavel Options"));
    add("scan", QStringLiteral("Scan"), QStringLiteral("Options relating to scanning for media"));
    connect(tbsOptions, &QTabBar::currentChanged, this, [this] { tbsOptions_Click(); });
}

void frmOptions::AddPanels() {
    for (std::size_t i = 0; i < picOptions.size(); ++i) {
        picOptions[i] = new QWidget(this);
        picOptions[i]->setObjectName(QStringLiteral("picOptions(%1)").arg(i));
    }
    const auto fill = [](QWidget& panel, const char* tag, const QList<QGroupBox*>& frames) {
        panel.setProperty("tag", QLatin1String(tag));
        auto* column = new QVBoxLayout(&panel);
        column->setContentsMargins({});
        for (QGroupBox* frame : frames) column->addWidget(frame);
        column->addStretch();
    };
    fill(*picOptions[4], "general",
         {Frame("Frame2", QStringLiteral("DB General"), {chkGeneral_ZipGroup})});
    fill(*picOptions[0], "scan",
         {Frame("fraSample1", QStringLiteral("General"), {chkScan_AutoGroup}),
          Frame("Frame1", QStringLiteral("Background Scan"),
                {chkScan_ScanOnStart, chkScan_Hidden})});
}

void frmOptions::PlaceControls() {
    // All panels stand in one place. The window takes its size while none is hidden, so that it has
    // room for the largest.
    auto* panels = new QGridLayout;
    for (QWidget* panel : picOptions) panels->addWidget(panel, 0, 0);
    auto* column = new QVBoxLayout(this);
    column->addWidget(tbsOptions);
    column->addLayout(panels);
    column->addLayout(OKAndCancel(
        *this, [this] { cmdOK_Click(); }, [] { SingleWindow<frmOptions>::Unload(); }));
    setFixedSize(std::max(Pixels(6000), sizeHint().width()), sizeHint().height());
}

void frmOptions::CentreOnScreen() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QSize free = screen.size() - frameGeometry().size();
    move(screen.topLeft() + QPoint(free.width() / 2, free.height() / 2));
}

// A flag that is not set leaves its box as it comes.
void frmOptions::ShowFlags() {
    if (bAutoGroup) chkScan_AutoGroup->setChecked(true);
    if (bScanOnAppStart) chkScan_ScanOnStart->setChecked(true);
    if (bAddHiddenFiles) chkScan_Hidden->setChecked(true);
    if (bGroupZip) chkGeneral_ZipGroup->setChecked(true);
}

void frmOptions::tbsOptions_Click() {
    const QVariant key = tbsOptions->tabData(tbsOptions->currentIndex());
    for (QWidget* panel : picOptions) panel->setVisible(panel->property("tag") == key);
}

void frmOptions::SelectNextTab() {
    tbsOptions->setCurrentIndex((tbsOptions->currentIndex() + 1) % tbsOptions->count());
}

// The running program takes the zip option from the box for hidden files; db.txt gets the right
// one, which counts from the next start on.
void frmOptions::cmdOK_Click() {
    {
        const ProfileBatch atOnce(sDBFile);
        WriteFlag("bAutoGroup", *chkScan_AutoGroup);
        bAutoGroup = chkScan_AutoGroup->isChecked();
        WriteFlag("bScanOnAppStart", *chkScan_ScanOnStart);
        bScanOnAppStart = chkScan_ScanOnStart->isChecked();
        WriteFlag("bAddHiddenFiles", *chkScan_Hidden);
        bAddHiddenFiles = chkScan_Hidden->isChecked();
        WriteFlag("bGroupZip", *chkGeneral_ZipGroup);
        bGroupZip = chkScan_Hidden->isChecked();
    }
    SingleWindow<frmOptions>::Unload();
}

}  // namespace tavel
