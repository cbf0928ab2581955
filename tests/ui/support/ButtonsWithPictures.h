#pragma once

#include "ui/toolkit/BoxStyle.h"

#include <QApplication>
#include <QProxyStyle>

namespace tavel::test {

// A desktop whose style puts pictures on the buttons of stock dialogs.
class ButtonsWithPictures {
  public:
    ButtonsWithPictures() { QApplication::setStyle(new Style); }
    ~ButtonsWithPictures() { QApplication::setStyle(new BoxStyle); }
    ButtonsWithPictures(const ButtonsWithPictures&) = delete;
    ButtonsWithPictures& operator=(const ButtonsWithPictures&) = delete;

  private:
    class Style : public QProxyStyle {
      public:
        Style() : QProxyStyle(QStringLiteral("fusion")) {}
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override {
            if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    };
};

}  // namespace tavel::test
