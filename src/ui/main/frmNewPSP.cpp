#include "ui/main/frmNewPSP.h"

#include "device/Discovery.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/Twips.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace tavel {

frmNewPSP::frmNewPSP()
    : QWidget(nullptr, FixedSizeDialog),
      txtName(Named<QLineEdit>("txtName", QStringLiteral("My PSP"), this)),
      drvPSP(Named<DriveList>("drvPSP", this)) {
    setObjectName(QStringLiteral("frmNewPSP"));
    setWindowTitle(QStringLiteral("Setup New PSP"));

    auto* Label1 = Named<QLabel>("Label1", QStringLiteral("PSP Name"), this);
    auto* Label3 = Named<QLabel>("Label3", QStringLiteral("PSP Drive"), this);
    auto* Label2 = Named<QLabel>(
        "Label2",
        QStringLiteral("We need to create a small file on your PSP to hold some data that Tavel "
                       "needs to run properly. The file is tiny (about 2Kb), so it wont take up "
                       "valuable media space on your memory stick."),
        this);
    Label2->setWordWrap(true);
    Label1->setBuddy(txtName);
    Label3->setBuddy(drvPSP);
    txtName->setAccessibleName(Label1->text());
    drvPSP->setAccessibleName(Label3->text());

    auto* column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(txtName);
    column->addWidget(Label3);
    column->addWidget(drvPSP);
    column->addSpacing(column->spacing());
    column->addWidget(Label2);
    column->addSpacing(column->spacing());
    column->addLayout(OKAndCancel(
        *this, [this] { cmdOK_Click(); }, [] { SingleWindow<frmNewPSP>::Unload(); }));

    StyleApply(*this, gStyle);
    setFixedSize(Pixels(5700), heightForWidth(Pixels(5700)));
}

void frmNewPSP::cmdOK_Click() {
    if (SetupNewPSP(drvPSP->Drive(), FromQString(txtName->text())))
        SingleWindow<frmNewPSP>::Unload();
}

}  // namespace tavel
