#include "library/Scan.h"
#include "ui/setup/frmStartWizard.h"
#include "ui/toolkit/Banner.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/QuietEvents.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/Twips.h"

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>

namespace tavel {

namespace {

// Twips.
constexpr int bannerWidth = 7710;
constexpr int bannerHeight = 1110;
constexpr int pageHeight = 4650;
constexpr int margin = 240;

}  // namespace

void frmStartWizard::PlaceControls() {
    auto* Frame1 = Named<QFrame>("Frame1", this);
    Frame1->setFixedSize(Pixels(bannerWidth), Pixels(bannerHeight));
    auto* Image1 = Named<Banner>("Image1", Frame1);
    Image1->setGeometry(Frame1->rect());
    Image1->setAccessibleName(QStringLiteral("Banner"));

    m_pages->setFixedSize(Pixels(bannerWidth - 2 * margin), Pixels(pageHeight));
    for (Integer number = 0; number <= PageCount; ++number) AddPage(number);
    fraWizard[0]->hide();
    AddNamePage();
    AddWatchPage();
    AddLibraryPage();
    AddDrivePage();
    AddFolderPage();
    AddOptionsPage();

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdPrev);
    buttons->addWidget(cmdNext);
    auto* below = new QVBoxLayout;
    below->setContentsMargins(Pixels(margin), 0, Pixels(margin), Pixels(margin));
    below->setSpacing(Pixels(margin));
    below->addWidget(m_pages);
    below->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(Frame1);
    column->addLayout(below);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

// As designed the pages lie side by side; each is moved to the first one's place when it shows.
void frmStartWizard::AddPage(Integer number) {
    QFrame*& page = fraWizard[static_cast<std::size_t>(number)];
    ScrollingLabel*& words = labText[static_cast<std::size_t>(number)];
    page = new QFrame(m_pages);
    page->setObjectName(QStringLiteral("fraWizard(%1)").arg(number));
    page->setGeometry(QRect(QPoint((number - 1) * m_pages->width(), 0), m_pages->size()));
    words = new ScrollingLabel;
    words->setObjectName(QStringLiteral("labText(%1)").arg(number));
    words->setAccessibleName(QStringLiteral("Page %1").arg(number));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins({});
    column->addWidget(words);
}

// A place for a page's controls, under its words.
QBoxLayout* frmStartWizard::AddPanel(Integer page, const char* name) {
    auto* panel = Named<QWidget>(name);
    fraWizard[static_cast<std::size_t>(page)]->layout()->addWidget(panel);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    return row;
}

void frmStartWizard::AddNamePage() {
    txtName->setAccessibleName(QStringLiteral("PSP Name"));
    fraWizard[2]->layout()->addWidget(txtName);
}

void frmStartWizard::AddWatchPage() {
    auto* cmdWatch = Named<QPushButton>("cmdWatch", QStringLiteral("Watch Folders"));
    connect(cmdWatch, &QPushButton::clicked, this, [] { cmdWatch_Click(); });
    QBoxLayout* Picture2 = AddPanel(3, "Picture2");
    Picture2->addWidget(cmdWatch);
    Picture2->addStretch();
}

void frmStartWizard::AddLibraryPage() {
    auto* cmdAddFiles = Named<QPushButton>("cmdAddFiles", QStringLiteral("Create Database"));
    connect(cmdAddFiles, &QPushButton::clicked, this, [] {
        // Clicks on a window that doesn't answer would fill the library once more.
        const auto drop = qScopeGuard(DropInput);
        AddWatchFolders();
    });
    QBoxLayout* Picture6 = AddPanel(4, "Picture6");
    Picture6->addWidget(cmdAddFiles);
    Picture6->addStretch();
}

void frmStartWizard::AddDrivePage() {
    drvPSP->setAccessibleName(QStringLiteral("PSP Drive"));
    AddPanel(6, "Picture4")->addWidget(drvPSP);
}

void frmStartWizard::AddFolderPage() {
    auto* cmdBrowse = Named<QPushButton>("cmdBrowse", QStringLiteral("Browse..."));
    connect(cmdBrowse, &QPushButton::clicked, this, [this] { cmdBrowse_Click(); });
    txtFolderPath->setAccessibleName(QStringLiteral("Folder for media"));
    QBoxLayout* Picture1 = AddPanel(7, "Picture1");
    Picture1->addWidget(txtFolderPath);
    Picture1->addWidget(cmdBrowse);
}

void frmStartWizard::AddOptionsPage() {
    fraWizard[8]->layout()->addWidget(chkAutoGroup);
    fraWizard[8]->layout()->addWidget(chkScanOnStart);
}

}  // namespace tavel
