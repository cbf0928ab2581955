#pragma once

#include "ui/toolkit/panel/Edges.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QImage>
#include <QSize>
#include <span>

namespace tavel {

// The styles of a pen, in the numbers of the setting. Any other number is a solid line.
enum PenStyle { PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_NULL };

struct Pen {
    int style = PS_SOLID;
    QColor color = Qt::black;
};

// The bits of a text's flags word. Left and top are the absence of the others.
enum DrawTextFlags : unsigned {
    DT_CENTER = 1,
    DT_RIGHT = 2,
    DT_VCENTER = 4,  // this and DT_BOTTOM for a single line alone
    DT_BOTTOM = 8,
    DT_SINGLELINE = 32,
};

// A font that takes nothing from the window or the program that it is shown in.
QFont WholeFont(QFont font);

// The step k of n in a gradient: start + (end - start) * k / n in each channel, cut toward zero.
QColor GradientStep(const QColor& start, const QColor& end, int step, int steps);

// A drawing surface with what is selected into it. Coordinates are logical pixels; on a screen of
// ratio 2 each is two device pixels wide and high, for lines and gradients too, while text and
// pictures use the device's own. Nothing is smoothed but text, and icons that are drawn smaller
// than they are. What falls outside is cut off.
class DeviceContext {
  public:
    // A black surface. Without a size it takes all calls and shows nothing.
    DeviceContext(QSize size, qreal ratio);

    QSize Size() const { return m_size; }
    qreal Ratio() const { return m_ratio; }
    const QImage& Surface() const { return m_surface; }

    Pen pen;  // one pixel wide
    QFont font;
    QColor textColor = Qt::black;

    void Fill(const QColor& color);

    // Lines from point to point with the pen. The last point is left out.
    void Polyline(std::span<const QPoint> points);

    // The outline of a rectangle whose corners are quarters of an ellipse of that width and height,
    // with the pen. The inside is left alone. Edges may stand the wrong way round.
    void RoundRect(const Edges& edges, int ellipseWidth, int ellipseHeight);

    // Two colours in steps of a pixel, from left to right or from top to bottom. Edges that stand
    // the wrong way round are exchanged together with the colours.
    void GradientFill(const Edges& edges, const QColor& start, const QColor& end, Qt::Orientation);

    // All of a picture, its pixels made as wide and as high as it takes.
    void StretchPicture(const QImage& picture, const Edges& edges);

    // The text inside the edges; "&" marks the letter behind it. Without DT_SINGLELINE, line breaks
    // in the text break the line.
    void DrawText(const QString& text, const Edges& edges, unsigned flags);

    // A picture stretched to that side, or with a side of 0 as large as it is (an icon up to 256);
    // below that nothing. Of a bitmap, what has the key's colour is left out; it has no other
    // transparency.
    void DrawIcon(const QIcon& icon, QPoint place, int side);
    void DrawBitmap(const QImage& bitmap, QRgb key, QPoint place, int side);

  private:
    QSize m_size;
    qreal m_ratio;
    QImage m_surface;
};

}  // namespace tavel
