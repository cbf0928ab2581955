#include "ui/toolkit/DraggedRows.h"

#include <QDropEvent>
#include <QMimeData>
#include <memory>

namespace tavel {

namespace {

const QString DraggedRowsType = QStringLiteral("application/x-tavel-rows");

}  // namespace

QMimeData* MakeDraggedRows() {
    auto content = std::make_unique<QMimeData>();
    content->setData(DraggedRowsType, {});
    return content.release();
}

bool AcceptDraggedRows(QDropEvent& event) {
    if (!event.mimeData()->hasFormat(DraggedRowsType)) return false;
    event.acceptProposedAction();
    return true;
}

}  // namespace tavel
