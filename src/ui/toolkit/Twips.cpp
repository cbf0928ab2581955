#include "ui/toolkit/Twips.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tavel {

namespace {

constexpr double textPoints = 8.25;
constexpr double twipsOfAPixel = 15;
constexpr double designDotsPerInch = 96;
constexpr double pointsOfAnInch = 72;

// What stands around a client area: the desktop's frame, whose size nobody knows beforehand, and
// the menu bar, which grows with its text.
constexpr QSize frame{10, 40};  // pixels
constexpr int menuBar = 360;    // twips

double s_scale = 1;

double DotsPerInch() { return QGuiApplication::primaryScreen()->logicalDotsPerInchY(); }

QFont OfSize(QFont font, double points) {
    font.setPointSizeF(points * s_scale * designDotsPerInch / DotsPerInch());
    return font;
}

}  // namespace

int Pixels(int twips) { return static_cast<int>(std::lround(twips * s_scale / twipsOfAPixel)); }

int Twips(int pixels) { return static_cast<int>(std::lround(pixels * twipsOfAPixel / s_scale)); }

void SetPoints(QWidget& control, double points) { control.setFont(OfSize(control.font(), points)); }

void SetScale(double scale) {
    s_scale = scale;
    QApplication::setFont(OfSize(QApplication::font(), textPoints));
}

double DesktopScale(QSize client) {
    const QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const double pixels = font.pixelSize() > 0 ? font.pixelSize()
                                               : font.pointSizeF() * DotsPerInch() / pointsOfAnInch;
    const QScreen& screen = *QGuiApplication::primaryScreen();
    return ScaleThatFits(pixels * pointsOfAnInch / designDotsPerInch, screen.availableSize(),
                         client, screen.devicePixelRatio());
}

double ScaleThatFits(double desktopPoints, QSize screenPixels, QSize client, double pixelRatio) {
    const QSize room = screenPixels - frame;
    const double wanted = std::max(1.0, desktopPoints / textPoints);
    const double fitting = std::min(room.width() * twipsOfAPixel / client.width(),
                                    room.height() * twipsOfAPixel / (client.height() + menuBar));
    return std::min(wanted, std::max(fitting, 1 / std::max(1.0, pixelRatio)));
}

}  // namespace tavel
