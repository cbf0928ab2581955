#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QWidget>
#include <functional>

namespace tavel {

// The parts of Qt's boxes with which a page is set up. Where a box has none of them, nothing is
// done.

bool HasPage(const QWidget& box);

// Gives the list of units, which has no caption, a name that a screen reader tells.
void NameUnits(const QWidget& box);

// The page that they show, in the units that they show, with no smallest margins.
QPageLayout PageShown(const QWidget& box);

// Brings them to the paper and the margins of this page. For a printer Qt begins with that
// printer's own paper and without any margin. A paper that is neither offered nor can be told by
// its size is left.
void ShowPage(const QWidget& box, const QPageLayout& page);

// No margin can be set below those that `least` tells, in the units that are shown. It is asked
// again whenever the page becomes another, when Qt forgets them.
void KeepMinimums(QWidget& box, const std::function<QMarginsF()>& least);

}  // namespace tavel
