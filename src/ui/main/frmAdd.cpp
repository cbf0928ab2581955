#include "ui/main/frmAdd.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/Twips.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace tavel {

frmAdd::frmAdd()
    : QWidget(nullptr, FixedSizeDialog),
      labPath(Named<ElidedLabel>("labPath", this)),
      chkExit(Named<QCheckBox>("chkExit", this)) {
    setObjectName(QStringLiteral("frmAdd"));
    setWindowTitle(QStringLiteral("Adding to DB"));
    chkExit->hide();

    auto* Label2 = Named<QLabel>("Label2", QStringLiteral("Adding:-"), this);
    auto* cmdCancel = Named<QPushButton>("cmdCancel", QStringLiteral("Cancel"), this);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { chkExit->setChecked(true); });

    auto* grid = new QGridLayout(this);
    grid->addWidget(Label2, 0, 0, 1, 2);
    grid->addWidget(labPath, 1, 0, 1, 2);
    grid->setRowMinimumHeight(2, grid->verticalSpacing());
    grid->addWidget(cmdCancel, 3, 1, Qt::AlignRight);

    StyleApply(*this, gStyle);
    setFixedSize(Pixels(6900), sizeHint().height());
}

void frmAdd::SetPath(const std::string& sPath) { labPath->setText(ToQString(sPath)); }

bool frmAdd::ExitChecked() const { return chkExit->isChecked(); }

}  // namespace tavel
