#pragma once

#include "ui/toolkit/panel/Edges.h"

#include <QPoint>
#include <QRegion>
#include <vector>

namespace tavel {

// Rectangles whose corners are quarters of an ellipse of a given width and height, as far as the
// rectangle has room for it. An ellipse of less than two pixels either way, whose sign does not
// count, leaves the corners square.

// The points at which the outline turns, clockwise and back to the first.
std::vector<QPoint> RoundRectOutline(const Edges& edges, int ellipseWidth, int ellipseHeight);

// What is inside the outline, that included. As the setting has it, a region's last column and row
// are left out: it ends a pixel before the edges do.
QRegion RoundRectRegion(const Edges& edges, int ellipseWidth, int ellipseHeight);

}  // namespace tavel
