#pragma once

#include <QPageLayout>
#include <QWidget>

namespace tavel {

// The parts of Qt's boxes with which a page is set up. Where a box has none of them, nothing is
// done.

bool HasPage(const QWidget& box);

// Brings them to the paper and the margins of this page, and so what the box will answer. For a
// printer Qt begins with that printer's own paper and without any margin. A paper that is not
// offered is left.
void ShowPage(const QWidget& box, const QPageLayout& page);

// No margin can be set below the page's minimum. Qt forgets it with every other paper.
void KeepMinimums(QWidget& box, const QPageLayout& page);

}  // namespace tavel
