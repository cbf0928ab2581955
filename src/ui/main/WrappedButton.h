#pragma once

#include <QPushButton>

namespace tavel {

// A button whose caption goes on to a second line where it is too wide for one.
class WrappedButton : public QPushButton {
    Q_OBJECT

  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tavel
