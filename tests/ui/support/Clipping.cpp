#include "ui/support/Clipping.h"

#include "ui/main/WrappedButton.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/Strings.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QToolButton>

namespace tavel::test {

namespace {

bool Fits(QSize size, QSize room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

QSize TextSize(const QWidget& control, const QString& text) {
    return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

bool IsWhole(const QLabel& label) {
    if (!label.pixmap(Qt::ReturnByValue).isNull()) return true;
    const QSize room = label.contentsRect().size();
    if (dynamic_cast<const ElidedLabel*>(&label) != nullptr)
        return label.fontMetrics().height() <= room.height();
    if (label.wordWrap()) return label.heightForWidth(label.width()) <= label.height();
    return Fits(TextSize(label, label.text()), room);
}

bool IsWhole(const QPushButton& button) {
    if (dynamic_cast<const WrappedButton*>(&button) != nullptr) {
        const QRect text = button.fontMetrics().boundingRect(
            button.rect(), Qt::AlignCenter | Qt::TextWordWrap, button.text());
        return Fits(text.size(), button.size());
    }
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect room =
        button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    return Fits(TextSize(button, button.text()), room.size());
}

bool IsWhole(const QHeaderView& header) {
    if (header.isHidden()) return true;
    for (int i = 0; i < header.count(); ++i) {
        const bool isShort = header.sectionSize(i) < header.sectionSizeHint(i);
        const bool hasText =
            !header.model()->headerData(i, header.orientation()).toString().isEmpty();
        if (hasText && isShort) return false;
    }
    return true;
}

bool IsWhole(const QAbstractItemView& view) {
    if (view.model() == nullptr) return true;
    const QModelIndex first = view.model()->index(0, 0, view.rootIndex());
    return !first.isValid() || view.visualRect(first).height() >= view.fontMetrics().height();
}

// Controls that tell themselves what they need.
bool HasRoom(const QWidget& control) {
    const auto* button = qobject_cast<const QToolButton*>(&control);
    const bool tells = (button != nullptr && !button->text().isEmpty() &&
                        button->toolButtonStyle() != Qt::ToolButtonIconOnly) ||
                       qobject_cast<const QMenuBar*>(&control) != nullptr;
    if (tells) return Fits(control.sizeHint(), control.size());
    // The line of a spin box has the frame of the box, and no room for one of its own.
    if (qobject_cast<const QAbstractSpinBox*>(control.parentWidget()) != nullptr)
        return control.fontMetrics().height() <= control.height();
    const bool tellsHeight = qobject_cast<const QLineEdit*>(&control) != nullptr ||
                             qobject_cast<const QComboBox*>(&control) != nullptr;
    return !tellsHeight || control.sizeHint().height() <= control.height();
}

bool TextIsWhole(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return IsWhole(*label);
    if (const auto* button = qobject_cast<const QPushButton*>(&control)) return IsWhole(*button);
    if (const auto* header = qobject_cast<const QHeaderView*>(&control)) return IsWhole(*header);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&control)) return IsWhole(*view);
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control))
        return TextSize(*frame, frame->title()).width() < frame->width();
    return HasRoom(control);
}

// What scrolls may reach out of its view.
bool IsInsideItsParent(const QWidget& control) {
    const QWidget& parent = *control.parentWidget();
    if (qobject_cast<const QAbstractScrollArea*>(&parent) != nullptr ||
        qobject_cast<const QAbstractScrollArea*>(parent.parentWidget()) != nullptr)
        return true;
    return parent.rect().contains(control.geometry());
}

// The path and the name of a class, for the controls of stock dialogs.
std::string NameOf(const QWidget& control) {
    const QString name = control.objectName();
    return name.isEmpty() ? control.metaObject()->className() : FromQString(name);
}

}  // namespace

std::vector<std::string> ClippedIn(QWidget& window) {
    std::vector<std::string> clipped;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &window) continue;
        if (!TextIsWhole(*control) || !IsInsideItsParent(*control))
            clipped.push_back(NameOf(*control));
    }
    return clipped;
}

}  // namespace tavel::test
