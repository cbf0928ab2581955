#pragma once

#include <QSize>

class QWidget;

namespace tavel {

// Window lengths are twips, 1/1440 inch, and text sizes points, both as designed. What they come to
// on the screen is one scale for all: at scale 1 the program's text has 8.25 points and 15 twips
// make a pixel. Qt's own scaling of a screen comes on top of it.
int Pixels(int twips);
int Twips(int pixels);
void SetPoints(QWidget& control, double points);

// The scale is set before the first window is made; the program's text takes its size from it.
void SetScale(double scale);

// The scale at which text has the desktop's size: never below 1, and no more than lets a window of
// that client area, in twips, stand on the screen with its frame and its menu bar. A screen that Qt
// scales by itself beyond that, at `pixelRatio` device pixels to each of its own, takes some of it
// back: a scale below 1, though never so low that 15 twips are less than a pixel of the device.
double DesktopScale(QSize client);
double ScaleThatFits(double desktopPoints, QSize screenPixels, QSize client, double pixelRatio = 1);

}  // namespace tavel
