#include "ui/toolkit/DraggedRows.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUuid>
#include <memory>

namespace tavel {

namespace {

const QString DraggedRowsType = QStringLiteral("application/x-tavel-rows");

const QByteArray& OwnMark() {
    static const QByteArray mark = QUuid::createUuid().toByteArray();
    return mark;
}

}  // namespace

QMimeData* MakeDraggedRows() {
    auto content = std::make_unique<QMimeData>();
    content->setData(DraggedRowsType, OwnMark());
    return content.release();
}

bool AcceptDraggedRows(QDropEvent& event) {
    if (event.mimeData()->data(DraggedRowsType) != OwnMark()) return false;
    event.acceptProposedAction();
    return true;
}

}  // namespace tavel
