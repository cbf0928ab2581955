#include "ui/toolkit/panel/DeviceContext.h"

#include "ui/toolkit/panel/RoundRectangle.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

namespace tavel {

namespace {

// Lengths of strokes and gaps in turn; none is a solid line.
std::span<const int> Pattern(int style) {
    static constexpr int dash[] = {18, 6};
    static constexpr int dot[] = {3, 3};
    static constexpr int dashDot[] = {9, 6, 3, 6};
    static constexpr int dashDotDot[] = {9, 3, 3, 3, 3, 3};
    switch (style) {
        case PS_DASH:
            return dash;
        case PS_DOT:
            return dot;
        case PS_DASHDOT:
            return dashDot;
        case PS_DASHDOTDOT:
            return dashDotDot;
        default:
            return {};
    }
}

bool InStroke(std::span<const int> pattern, int step) {
    if (pattern.empty()) return true;
    int place = step % std::accumulate(pattern.begin(), pattern.end(), 0);
    std::size_t part = 0;
    while (place >= pattern[part]) place -= pattern[part++];
    return part % 2 == 0;
}

// The pixels from one point to another, which is left out.
void AppendLine(std::vector<QPoint>& pixels, QPoint from, QPoint to) {
    const QPoint way = to - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    for (int step = 0; step < steps; ++step) {
        const double part = static_cast<double>(step) / steps;
        pixels.push_back(from + QPoint(static_cast<int>(std::lround(way.x() * part)),
                                       static_cast<int>(std::lround(way.y() * part))));
    }
}

int QtFlags(unsigned flags) {
    int result = Qt::TextShowMnemonic | Qt::AlignAbsolute;
    if ((flags & DT_CENTER) != 0) result |= Qt::AlignHCenter;
    if ((flags & DT_RIGHT) != 0) result |= Qt::AlignRight;
    if ((flags & DT_SINGLELINE) == 0) return result;
    result |= Qt::TextSingleLine;
    if ((flags & DT_VCENTER) != 0) result |= Qt::AlignVCenter;
    if ((flags & DT_BOTTOM) != 0) result |= Qt::AlignBottom;
    return result;
}

}  // namespace

QFont WholeFont(QFont font) {
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

QColor GradientStep(const QColor& start, const QColor& end, int step, int steps) {
    const auto channel = [&](int from, int to) { return from + (to - from) * step / steps; };
    return {channel(start.red(), end.red()), channel(start.green(), end.green()),
            channel(start.blue(), end.blue())};
}

DeviceContext::DeviceContext(QSize size, qreal ratio)
    : m_size(size),
      m_ratio(ratio),
      m_surface((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32) {
    m_surface.setDevicePixelRatio(ratio);
    m_surface.fill(Qt::black);
}

void DeviceContext::Fill(const QColor& color) { m_surface.fill(color); }

void DeviceContext::Polyline(std::span<const QPoint> points) {
    if (pen.style == PS_NULL || m_surface.isNull()) return;
    std::vector<QPoint> pixels;
    for (std::size_t i = 1; i < points.size(); ++i) AppendLine(pixels, points[i - 1], points[i]);
    const std::span<const int> pattern = Pattern(pen.style);
    QPainter painter(&m_surface);
    int step = 0;
    for (const QPoint& pixel : pixels) {
        if (InStroke(pattern, step++)) painter.fillRect(QRect(pixel, QSize(1, 1)), pen.color);
    }
}

void DeviceContext::RoundRect(const Edges& edges, int ellipseWidth, int ellipseHeight) {
    Polyline(RoundRectOutline(edges.Sorted(), ellipseWidth, ellipseHeight));
}

void DeviceContext::GradientFill(const Edges& edges, const QColor& start, const QColor& end,
                                 Qt::Orientation orientation) {
    if (m_surface.isNull()) return;
    const QRect area = edges.Sorted().ToQRect();
    const bool across = orientation == Qt::Horizontal;
    const bool turned = across ? edges.Width() < 0 : edges.Height() < 0;
    const int steps = across ? area.width() : area.height();
    QPainter painter(&m_surface);
    for (int step = 0; step < steps; ++step) {
        const QColor color =
            turned ? GradientStep(end, start, step, steps) : GradientStep(start, end, step, steps);
        painter.fillRect(across ? QRect(area.left() + step, area.top(), 1, area.height())
                                : QRect(area.left(), area.top() + step, area.width(), 1),
                         color);
    }
}

void DeviceContext::StretchPicture(const QImage& picture, const Edges& edges) {
    if (m_surface.isNull()) return;
    QPainter(&m_surface).drawImage(edges.ToQRect(), picture);
}

void DeviceContext::DrawText(const QString& text, const Edges& edges, unsigned flags) {
    if (m_surface.isNull() || edges.Width() < 1 || edges.Height() < 1) return;
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    QPainter painter(&m_surface);
    painter.setFont(WholeFont(font));
    painter.setPen(textColor);
    painter.drawText(edges.ToQRect(), QtFlags(flags), lines);
}

void DeviceContext::DrawIcon(const QIcon& icon, QPoint place, int side) {
    if (m_surface.isNull() || side < 0) return;
    // The setting's icons are no larger, and a drawn one would be made in full.
    constexpr QSize largest(256, 256);
    const QSize size = side == 0 ? icon.actualSize(largest) : QSize(side, side);
    QPainter painter(&m_surface);
    painter.drawPixmap(QRect(place, size), icon.pixmap(size.boundedTo(largest), m_ratio));
}

// A pixel of the surface takes one of the bitmap's, cut toward its first: a mixture would have
// neither the key's colour nor the picture's.
void DeviceContext::DrawBitmap(const QImage& bitmap, QRgb key, QPoint place, int side) {
    if (bitmap.isNull() || side < 0) return;
    const QSize size = side == 0 ? bitmap.size() : QSize(side, side);
    const QRect whole((QPointF(place) * m_ratio).toPoint(), (QSizeF(size) * m_ratio).toSize());
    const QRect shown = whole & m_surface.rect();
    const auto source = [](int step, int pixels, int steps) {
        return static_cast<int>(std::int64_t(step) * pixels / steps);
    };
    for (int y = shown.top(); y <= shown.bottom(); ++y) {
        const int row = source(y - whole.top(), bitmap.height(), whole.height());
        for (int x = shown.left(); x <= shown.right(); ++x) {
            const int column = source(x - whole.left(), bitmap.width(), whole.width());
            const QRgb color = bitmap.pixel(column, row);
            if (((color ^ key) & RGB_MASK) != 0) m_surface.setPixel(x, y, color | ~RGB_MASK);
        }
    }
}

}  // namespace tavel
