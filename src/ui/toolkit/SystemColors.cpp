#include "ui/toolkit/SystemColors.h"

#include <QGuiApplication>
#include <QPalette>
#include <array>

namespace tavel {

namespace {

struct Place {
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

// In the order of the setting's numbers. A palette knows nothing of the frames around windows: a
// title has the colour of what is selected, the rest of a frame that of a button.
constexpr std::array places{
    Place{QPalette::Button},                          // 0, scroll bar
    Place{QPalette::Dark},                            // desktop
    Place{QPalette::Highlight},                       // title
    Place{QPalette::Button, QPalette::Inactive},      // ... of a window behind
    Place{QPalette::Window},                          // menu
    Place{QPalette::Base},                            // 5, window
    Place{QPalette::WindowText},                      // its frame
    Place{QPalette::WindowText},                      // text of a menu
    Place{QPalette::Text},                            // ... of a window
    Place{QPalette::HighlightedText},                 // ... of a title
    Place{QPalette::Button},                          // 10, border
    Place{QPalette::Button, QPalette::Inactive},      // ... of a window behind
    Place{QPalette::Dark},                            // behind a window's documents
    Place{QPalette::Highlight},                       // what is selected
    Place{QPalette::HighlightedText},                 // its text
    Place{QPalette::Button},                          // 15, face of a button
    Place{QPalette::Dark},                            // its shadow
    Place{QPalette::Text, QPalette::Disabled},        // text of what is disabled
    Place{QPalette::ButtonText},                      // ... of a button
    Place{QPalette::WindowText, QPalette::Inactive},  // ... of the title of a window behind
    Place{QPalette::Light},                           // 20, a button's lit edge
    Place{QPalette::Shadow},                          // its deepest shadow
    Place{QPalette::Midlight},                        // its second lit edge
    Place{QPalette::ToolTipText},                     // text of a tip
    Place{QPalette::ToolTipBase},                     // tip
    Place{QPalette::Button},                          // 25, a button's other face
    Place{QPalette::Link},                            // what a click leads on from
    Place{QPalette::Highlight},                       // the other end of a title
    Place{QPalette::Button, QPalette::Inactive},      // ... of a window behind
    Place{QPalette::Highlight},                       // entry of a menu under the pointer
    Place{QPalette::Window},                          // 30, menu bar
};

constexpr std::uint32_t systemColor = 0x80000000;
constexpr std::uint32_t indexBits = 0xFF;

}  // namespace

QColor SystemColor(int index) {
    if (index < 0 || index >= static_cast<int>(places.size())) return Qt::black;
    const Place& place = places[static_cast<std::size_t>(index)];
    return QGuiApplication::palette().color(place.group, place.role);
}

QColor FromOleColor(std::uint32_t color) {
    if ((color & ~indexBits) == systemColor)
        return SystemColor(static_cast<int>(color & indexBits));
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

Long ToOleColor(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

}  // namespace tavel
