#include "ui/main/frmInvFiles.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Twips.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavel {

frmInvFiles::frmInvFiles()
    : QWidget(nullptr, Qt::Dialog), lstItems(Named<LineList>("lstItems", this)) {
    setObjectName(QStringLiteral("frmInvFiles"));
    setWindowTitle(QStringLiteral("Invalid Files"));

    auto* Label1 = Named<QLabel>("Label1",
                                 QStringLiteral("The following items were not added to the DB, as "
                                                "they are not supported by your PSP and/or Tavel"),
                                 this);
    Label1->setWordWrap(true);
    Label1->setBuddy(lstItems);
    lstItems->setAccessibleName(tr("Items that were not added"));
    auto* cmdOK = Named<QPushButton>("cmdOK", QStringLiteral("OK"), this);
    connect(cmdOK, &QPushButton::clicked, this, [] { SingleWindow<frmInvFiles>::Unload(); });

    auto* column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(lstItems);
    column->addWidget(cmdOK, 0, Qt::AlignRight);

    resize(Pixels(7200), Pixels(4800));
}

void frmInvFiles::AddItem(const std::string& sPath) { lstItems->AddItem(sPath); }

}  // namespace tavel
