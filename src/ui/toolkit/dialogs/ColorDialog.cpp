#include "ui/toolkit/dialogs/ColorDialog.h"

#include "ui/toolkit/Controls.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace tavel {

namespace {

// The wells of colours, their captions and the buttons that end the dialog.
bool IsForPicking(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    return (label != nullptr && label->buddy() != nullptr) || control.inherits("QWellArray") ||
           qobject_cast<const QDialogButtonBox*>(&control) != nullptr;
}

QLayout* ColumnOf(const QDialog& dialog, const QWidget& control) {
    for (QBoxLayout* column : dialog.findChildren<QBoxLayout*>()) {
        if (column->indexOf(&control) >= 0) return column;
    }
    return dialog.layout();
}

}  // namespace

ColorDialog::ColorDialog(const ColorRequest& request) : QColorDialog(request.owner) {
    setObjectName(QStringLiteral("ColorDialog"));
    setOption(DontUseNativeDialog);
    SetCustom(request.custom);
    setCurrentColor(request.color);
    PlainButtons(*this);
    if ((request.flags & colorFlag::FullOpen) == 0)
        FoldUp((request.flags & colorFlag::PreventFullOpen) == 0);
}

CustomColors ColorDialog::Custom() {
    CustomColors custom;
    for (std::size_t i = 0; i < custom.size(); ++i) custom[i] = customColor(static_cast<int>(i));
    return custom;
}

void ColorDialog::SetCustom(const CustomColors& custom) {
    for (std::size_t i = 0; i < custom.size(); ++i) setCustomColor(static_cast<int>(i), custom[i]);
}

void ColorDialog::FoldUp(bool mayBeOpened) {
    // On a screen of less than 480 pixels Qt leaves all but the mixing out.
    const auto buttons = findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    if (buttons.isEmpty()) return;
    for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control->isHidden() || IsForPicking(*control)) continue;
        m_mixing << control;
        control->hide();
    }
    cmdDefine = Named<QPushButton>("cmdDefine", tr("&Define Custom Colors >>"), this);
    cmdDefine->setAutoDefault(false);
    cmdDefine->setEnabled(mayBeOpened);
    connect(cmdDefine, &QPushButton::clicked, this, [this] { OpenUp(); });
    ColumnOf(*this, *buttons.back())->addWidget(cmdDefine);
}

void ColorDialog::OpenUp() {
    cmdDefine->hide();
    for (QWidget* control : m_mixing) control->show();
}

}  // namespace tavel
