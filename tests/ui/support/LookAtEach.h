#pragma once

#include "ui/support/Modal.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <functional>
#include <vector>

namespace tavel::test {

// Calls that bring up a dialog each.
using Asks = std::vector<std::function<void()>>;

// Looks at each of the real dialogs and cancels it.
inline void LookAtEach(const Asks& asks, const std::function<void(QWidget&)>& look) {
    for (const auto& ask : asks) {
        CancelNext(look);
        ask();
    }
}

// Those that are Qt's own on every host, with all that they have.
inline Asks ColorsAndFonts() {
    ColorRequest color;
    color.flags = colorFlag::FullOpen;
    FontRequest font;
    font.flags = fontFlag::Effects;
    auto& dialogs = Service<CommonDialogs>::Get();
    return {[&dialogs, color] { dialogs.PickColor(color); },
            [&dialogs, font] { dialogs.PickFont(font); }};
}

// How many controls of a dialog take a value. Each must have a name for a screen reader.
int ExpectNamed(const QWidget& box);

// The dialog has the text of the program.
void ExpectOwnText(const QWidget& box);

// A host whose dialogs have no parts that go by a name, for as long as it lives.
class NamelessParts : public QObject {
  public:
    NamelessParts();
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tavel::test
