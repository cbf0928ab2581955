#include "ui/toolkit/panel/PanelThemes.h"

#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/panel/PanelProperties.h"

#include <array>

namespace tavel {

namespace {

constexpr OleColor Rgb(int red, int green, int blue) {
    return static_cast<OleColor>(red | green << 8 | blue << 16);
}

OleColor Darker(int red, int green, int blue) { return dBlendColor(Rgb(red, green, blue), 0, 230); }

// In the order of PanelColors.
std::array<PanelColors, PanelThemeCount> Themes() {
    return {{{Rgb(137, 170, 224), Rgb(7, 33, 100), Rgb(215, 230, 251), Rgb(172, 191, 227),
              Rgb(9, 42, 127), Rgb(102, 145, 215), Rgb(215, 230, 251), Rgb(142, 179, 231),
              Rgb(142, 179, 231), Rgb(1, 45, 150)},
             {Rgb(160, 160, 160), Darker(90, 90, 90), Rgb(255, 255, 255), Rgb(220, 220, 220),
              Rgb(169, 169, 169), Rgb(105, 105, 105), Rgb(215, 230, 251), Rgb(112, 112, 112),
              Rgb(112, 112, 112), Rgb(68, 68, 68)},
             {Rgb(216, 228, 248), Rgb(49, 106, 197), Rgb(215, 230, 251), Rgb(65, 105, 225),
              Rgb(49, 106, 197), Rgb(211, 229, 250), Rgb(215, 230, 251), Rgb(243, 255, 255),
              Rgb(142, 179, 231), Rgb(192, 211, 240)},
             {Rgb(255, 255, 255), Rgb(201, 211, 243), Rgb(0, 41, 99), Rgb(172, 191, 227),
              Rgb(255, 255, 255), Rgb(184, 205, 236), Rgb(0, 41, 99), Rgb(255, 255, 255),
              Rgb(201, 211, 243), Rgb(184, 205, 236)},
             {Rgb(228, 235, 200), Rgb(175, 194, 142), Rgb(100, 144, 88), Rgb(143, 188, 139),
              Rgb(165, 182, 121), Rgb(233, 244, 207), Rgb(215, 230, 251), Rgb(233, 244, 207),
              Rgb(233, 244, 207), Rgb(100, 144, 88)},
             {Rgb(219, 220, 232), Rgb(149, 147, 177), Rgb(119, 118, 151), Rgb(106, 90, 205),
              Rgb(149, 147, 177), Rgb(207, 223, 239), Rgb(215, 230, 251), Rgb(232, 232, 232),
              Rgb(232, 232, 232), Rgb(119, 118, 151)},
             {Rgb(209, 227, 251), Rgb(106, 140, 203), Rgb(110, 109, 143), Rgb(45, 80, 153),
              Rgb(176, 196, 222), Rgb(100, 149, 237), Rgb(215, 230, 251), Rgb(255, 255, 255),
              Rgb(255, 255, 255), Rgb(0, 0, 128)},
             {Rgb(255, 122, 0), Rgb(130, 0, 0), Rgb(255, 222, 173), Rgb(246, 172, 84),
              Rgb(180, 99, 1), Rgb(130, 0, 0), Rgb(215, 230, 251), Rgb(255, 222, 173),
              Rgb(224, 180, 97), Rgb(139, 0, 0)},
             {Rgb(72, 209, 204), Rgb(43, 103, 109), Rgb(233, 250, 248), Rgb(193, 240, 234),
              Rgb(0, 139, 139), Rgb(0, 128, 128), Rgb(215, 230, 251), Rgb(224, 255, 255),
              Rgb(224, 255, 255), Rgb(65, 131, 111)},
             {Rgb(192, 192, 192), Rgb(51, 51, 51), Rgb(235, 235, 235), Rgb(220, 220, 220),
              Rgb(128, 128, 128), Rgb(211, 211, 211), Rgb(215, 230, 251), Rgb(235, 235, 235),
              Rgb(235, 235, 235), Rgb(51, 51, 51)},
             {Rgb(81, 128, 208), Darker(11, 63, 153), Rgb(255, 0, 0), Rgb(191, 0, 0),
              Rgb(81, 128, 208), Darker(11, 63, 153), Rgb(215, 230, 251), Rgb(142, 179, 231),
              Rgb(142, 179, 231), Rgb(0, 45, 150)},
             {Rgb(0, 45, 150), Rgb(89, 135, 214), Rgb(172, 191, 227), Rgb(172, 191, 227),
              Rgb(255, 255, 255), Rgb(201, 211, 243), Rgb(215, 230, 251), Rgb(246, 247, 248),
              Rgb(246, 247, 248), Rgb(124, 124, 148)}}};
}

}  // namespace

PanelColors PanelTheme(int theme) {
    static const std::array themes = Themes();
    return themes.at(static_cast<std::size_t>(theme));
}

PanelColors CustomPanelColors(const PanelProperties& properties) {
    return {.headerStart = properties.HeaderBackColor,
            .headerEnd = properties.HeaderFadeColor,
            .headerText = properties.HeaderTextColor,
            .chevron = properties.CollapseButtonColor,
            .footerStart = properties.FooterBackColor,
            .footerEnd = properties.FooterFadeColor,
            .footerText = properties.FooterTextColor,
            .containerStart = properties.ContainerBackColor,
            .containerEnd = properties.ContainerFadeColor,
            .border = properties.ContainerBorderColor};
}

OleColor dBlendColor(OleColor oColorFrom, OleColor oColorTo, std::uint8_t alpha) {
    const QColor from = FromOleColor(oColorFrom);
    const QColor to = FromOleColor(oColorTo);
    const auto mixed = [alpha](int first, int second) {
        return static_cast<int>(
            RoundToInteger((255 - alpha) * second / 255.0 + alpha * first / 255.0));
    };
    return Rgb(mixed(from.red(), to.red()), mixed(from.green(), to.green()),
               mixed(from.blue(), to.blue()));
}

}  // namespace tavel
