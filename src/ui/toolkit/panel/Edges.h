#pragma once

#include <QRect>
#include <algorithm>

namespace tavel {

// A rectangle as drawing calls take it: right and bottom are the first column and row outside.
struct Edges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    // The same, whichever way round they stand.
    Edges Sorted() const {
        return {std::min(left, right), std::min(top, bottom), std::max(left, right),
                std::max(top, bottom)};
    }
    QRect ToQRect() const { return {left, top, Width(), Height()}; }
};

}  // namespace tavel
