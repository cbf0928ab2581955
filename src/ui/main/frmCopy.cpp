#include "ui/main/frmCopy.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavel {

namespace {

constexpr double fileSize = 13.5;  // points
constexpr double finishSize = 24;

// Keeps a control's place while it is hidden, so that nothing jumps when it shows.
void HideInPlace(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
    control.hide();
}

}  // namespace

frmCopy::frmCopy()
    : QWidget(nullptr, FixedSizeDialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      pgbCurr(Named<ProgressBar>("pgbCurr")),
      pgbTotal(Named<ProgressBar>("pgbTotal")),
      labFile(Named<ElidedLabel>("labFile")),
      labSubFile(Named<ElidedLabel>("labSubFile")),
      labFinish(Named<QLabel>("labFinish", QStringLiteral("Finished!"))),
      cmdOK(Named<QPushButton>("cmdOK", QStringLiteral("OK"))) {
    setObjectName(QStringLiteral("frmCopy"));
    setWindowTitle(QStringLiteral("Copying"));

    auto* Frame1 = Named<QGroupBox>("Frame1", QStringLiteral("Copy Files"), this);
    SetPoints(*labFile, fileSize);
    SetPoints(*labFinish, finishSize);
    labFinish->setAlignment(Qt::AlignCenter);
    cmdOK->setEnabled(false);
    connect(cmdOK, &QPushButton::clicked, this, [] { SingleWindow<frmCopy>::Unload(); });
    SetEnterButton(*this, *cmdOK);
    PlaceControls(*Frame1);

    auto* window = new QVBoxLayout(this);
    window->addWidget(Frame1);
    StyleApply(*this, gStyle);
    setFixedSize(Pixels(7800), sizeHint().height());
}

void frmCopy::PlaceControls(QGroupBox& frame) {
    auto* Label1 = Named<QLabel>("Label1", QStringLiteral("Current File"));
    auto* Label2 = Named<QLabel>("Label2", QStringLiteral("Total Progress"));
    auto* Label3 = Named<QLabel>("Label3", QStringLiteral("Copying:"));
    SetPoints(*Label3, fileSize);
    pgbCurr->setAccessibleName(Label1->text());
    pgbTotal->setAccessibleName(Label2->text());

    auto* grid = new QGridLayout(&frame);
    grid->addWidget(Label1, 0, 0, 1, 2);
    grid->addWidget(pgbCurr, 1, 0, 1, 2);
    grid->addWidget(Label2, 2, 0, 1, 2);
    grid->addWidget(pgbTotal, 3, 0, 1, 2);
    grid->setRowMinimumHeight(4, grid->verticalSpacing());
    grid->addWidget(Label3, 5, 0);
    grid->addWidget(labFile, 5, 1);
    grid->addWidget(labSubFile, 6, 1);
    grid->addWidget(labFinish, 7, 0, 1, 2);
    grid->addWidget(cmdOK, 8, 0, 1, 2, Qt::AlignHCenter);
    grid->setColumnStretch(1, 1);
    HideInPlace(*labSubFile);
    HideInPlace(*labFinish);
    HideInPlace(*cmdOK);
}

void frmCopy::SetFile(const std::string& sText) { labFile->setText(ToQString(sText)); }

void frmCopy::SetSubFile(const std::string& sText) { labSubFile->setText(ToQString(sText)); }

void frmCopy::ShowSubFile(bool bVisible) { labSubFile->setVisible(bVisible); }

void frmCopy::ShowFinish() { labFinish->show(); }

void frmCopy::ShowOK() {
    cmdOK->show();
    cmdOK->setEnabled(true);
    cmdOK->setFocus();
}

void frmCopy::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace tavel
