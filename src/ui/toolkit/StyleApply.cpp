#include "ui/toolkit/StyleApply.h"

#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/SystemColors.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <optional>
#include <vector>

namespace tavel {

namespace {

constexpr Long leaveAlone = -1;

using Roles = std::vector<QPalette::ColorRole>;

// A control's kind as far as the style goes: which palette roles its back colour is, and which of
// the style's two colours it takes.
struct Kind {
    Roles roles;
    Long Style::*color;
};

// A label that stretches its contents is made for a picture, even while it has none.
bool ShowsPicture(const QLabel& label) {
    return label.hasScaledContents() || !label.pixmap(Qt::ReturnByValue).isNull();
}

std::optional<Kind> KindOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        if (ShowsPicture(*label)) return std::nullopt;
        return Kind{{QPalette::Window}, &Style::lBackColorA};
    }
    if (qobject_cast<const ScrollingLabel*>(&control) != nullptr)
        return Kind{{QPalette::Window}, &Style::lBackColorA};
    if (qobject_cast<const QPushButton*>(&control) != nullptr)
        return Kind{{QPalette::Button}, &Style::lBackColorA};
    // These two fill themselves as any button does.
    if (qobject_cast<const QCheckBox*>(&control) != nullptr ||
        qobject_cast<const QRadioButton*>(&control) != nullptr)
        return Kind{{QPalette::Button}, &Style::lBackColorB};
    if (qobject_cast<const QGroupBox*>(&control) != nullptr)
        return Kind{{QPalette::Window}, &Style::lBackColorA};
    if (qobject_cast<const DriveList*>(&control) != nullptr) return std::nullopt;
    if (qobject_cast<const QComboBox*>(&control) != nullptr)
        return Kind{{QPalette::Button, QPalette::Base}, &Style::lBackColorB};  // and its list
    if (qobject_cast<const LineList*>(&control) != nullptr)
        return Kind{{QPalette::Base}, &Style::lBackColorB};
    return std::nullopt;
}

void SetBackColor(QWidget& widget, const Roles& roles, Long color) {
    if (color == leaveAlone) return;
    QPalette palette = widget.palette();
    for (const QPalette::ColorRole role : roles)
        palette.setColor(role, FromOleColor(static_cast<std::uint32_t>(color)));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

// The program's font stands behind the named one, so that a name no machine has falls back to what
// the rest of the desktop looks like.
void SetFontName(QWidget& widget, const QStringList& families) {
    QFont font = widget.font();
    font.setFamilies(families);
    widget.setFont(font);
}

// Qt hands a frame's font down to what stands in it; a control of a kind outside the table must
// not get it that way.
void KeepOwnFonts(QWidget& window) {
    for (const QGroupBox* frame : window.findChildren<QGroupBox*>()) {
        for (QWidget* child :
             frame->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!KindOf(*child)) SetFontName(*child, QStringList(child->font().family()));
        }
    }
}

// Likewise the back colour of a window and of a frame. What a control of the table shows of it by
// being transparent is no colour of its own either.
void KeepOwnColors(const QWidget& container) {
    for (QWidget* child : container.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        QPalette palette = child->palette();
        palette.setColor(QPalette::Window, palette.color(QPalette::Window));
        child->setPalette(palette);
        if (KindOf(*child)) child->setAutoFillBackground(true);
    }
}

}  // namespace

void StyleApply(QWidget& window, const Style& style) {
    if (style.lBackColorA != leaveAlone) {
        KeepOwnColors(window);
        for (const QGroupBox* frame : window.findChildren<QGroupBox*>()) KeepOwnColors(*frame);
    }
    SetBackColor(window, {QPalette::Window}, style.lBackColorA);
    const QStringList styled{ToQString(style.sFontName), QApplication::font().family()};
    KeepOwnFonts(window);
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const std::optional<Kind> kind = KindOf(*control);
        if (!kind) continue;
        SetFontName(*control, styled);
        SetBackColor(*control, kind->roles, style.*(kind->color));
    }
}

}  // namespace tavel
