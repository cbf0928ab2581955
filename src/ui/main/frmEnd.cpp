#include "ui/main/frmEnd.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/Twips.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace tavel {

frmEnd::frmEnd() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmEnd"));
    setWindowTitle(QStringLiteral("Tavel"));

    auto* Picture1 = Named<QFrame>("Picture1", this);
    Picture1->setFrameShape(QFrame::StyledPanel);
    auto* lblEnd = Named<QLabel>("lblEnd", QStringLiteral("Saving DB..."), Picture1);
    lblEnd->setAlignment(Qt::AlignCenter);

    auto* box = new QVBoxLayout(Picture1);
    box->addWidget(lblEnd);
    auto* window = new QVBoxLayout(this);
    window->setContentsMargins(0, 0, 0, 0);
    window->addWidget(Picture1);

    StyleApply(*this, gStyle);
    resize(Pixels(3600), Pixels(1080));
}

}  // namespace tavel
