#pragma once

#include <QString>
#include <functional>
#include <utility>

class QHBoxLayout;
class QPushButton;
class QWidget;

namespace tavel {

// The kind of a dialog that cannot be made larger; its frame has no grip for it.
inline constexpr Qt::WindowFlags FixedSizeDialog = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint;

// A control under its name, which tests find it by.
template <class Control, class... Arguments>
Control* Named(const char* name, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)...);
    control->setObjectName(QLatin1String(name));
    return control;
}

// The Escape key clicks the button, unless a control of the window has use for it. Held down, or
// with Control and its like, it does nothing.
void SetEscapeButton(QWidget& window, QPushButton& button);

// The Enter keys likewise click the button that has the focus, or else this one. The one that
// they would click looks so.
void SetEnterButton(QWidget& window, QPushButton& button);

// The row below a dialog's controls, with cmdOK and cmdCancel at its right. Enter and Escape click
// them, too.
QHBoxLayout* OKAndCancel(QWidget& window, const std::function<void()>& ok,
                         const std::function<void()>& cancel);

// Takes the pictures off a stock dialog's buttons, so that they look like the program's own.
void PlainButtons(QWidget& dialog);

}  // namespace tavel
