#include "ui/toolkit/panel/RoundRectangle.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tavel {

namespace {

// How many pixels of each row of an ellipse's upper half lie outside it at either end. The ellipse
// is followed from its left end to its top, in whole numbers: the setting draws it so, and other
// ways to draw one take other pixels.
std::vector<int> Insets(const Edges& edges, int ellipseWidth, int ellipseHeight) {
    const int width = std::min(edges.Width(), std::abs(ellipseWidth));
    const int height = std::min(edges.Height(), std::abs(ellipseHeight));
    if (width < 2 || height < 2) return {};
    const std::int64_t a = width - 1;
    const std::int64_t b = height - 1;
    const std::int64_t odd = b % 2;
    std::int64_t stepX = 4 * (1 - a) * b * b;
    std::int64_t stepY = 4 * (1 + odd) * a * a;
    std::int64_t error = stepX + stepY + odd * a * a;

    std::vector<int> insets(static_cast<std::size_t>(b / 2 + 1));
    std::size_t row = insets.size() - 1;
    int x = 0;
    const int middle = (width - 1) / 2;
    while (row > 0 && x <= middle) {
        const std::int64_t twice = 2 * error;
        if (twice >= stepX) {
            ++x;
            error += stepX += 8 * b * b;
        }
        if (twice <= stepY) {
            insets[--row] = std::min(x, middle);
            error += stepY += 8 * a * a;
        }
    }
    // The tip of a narrow one.
    std::fill_n(insets.begin(), row, insets[row]);
    return insets;
}

// The upper left corner of a rectangle at (0, 0), from its left side to its top.
std::vector<QPoint> Corner(const std::vector<int>& insets) {
    if (insets.empty()) return {QPoint(0, 0)};
    std::vector<QPoint> points;
    for (std::size_t row = insets.size(); row-- > 0;) {
        const int y = static_cast<int>(row);
        points.emplace_back(insets[row], y);
        if (row > 0) points.emplace_back(std::max(insets[row], insets[row - 1] - 1), y);
    }
    return points;
}

}  // namespace

std::vector<QPoint> RoundRectOutline(const Edges& edges, int ellipseWidth, int ellipseHeight) {
    if (edges.Width() < 1 || edges.Height() < 1) return {};
    const std::vector<QPoint> corner = Corner(Insets(edges, ellipseWidth, ellipseHeight));
    const int right = edges.right - 1;
    const int bottom = edges.bottom - 1;
    std::vector<QPoint> outline;
    for (const QPoint& point : corner)
        outline.emplace_back(edges.left + point.x(), edges.top + point.y());
    for (auto point = corner.rbegin(); point != corner.rend(); ++point)
        outline.emplace_back(right - point->x(), edges.top + point->y());
    for (const QPoint& point : corner) outline.emplace_back(right - point.x(), bottom - point.y());
    for (auto point = corner.rbegin(); point != corner.rend(); ++point)
        outline.emplace_back(edges.left + point->x(), bottom - point->y());
    outline.push_back(outline.front());
    return outline;
}

QRegion RoundRectRegion(const Edges& edges, int ellipseWidth, int ellipseHeight) {
    const Edges box{edges.left, edges.top, edges.right - 1, edges.bottom - 1};
    QRegion region(box.ToQRect());
    const std::vector<int> insets = Insets(box, ellipseWidth, ellipseHeight);
    for (std::size_t row = 0; row < insets.size(); ++row) {
        const int inset = insets[row];
        for (const int y :
             {box.top + static_cast<int>(row), box.bottom - 1 - static_cast<int>(row)}) {
            region -= QRect(box.left, y, inset, 1);
            region -= QRect(box.right - inset, y, inset, 1);
        }
    }
    return region;
}

}  // namespace tavel
