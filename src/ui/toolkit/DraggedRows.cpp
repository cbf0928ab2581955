#include "ui/toolkit/DraggedRows.h"

#include "ui/toolkit/ShownText.h"
#include "ui/toolkit/Twips.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QUuid>
#include <QWidget>
#include <memory>

namespace tavel {

namespace {

const QString DraggedRowsType = QStringLiteral("application/x-tavel-rows");

const QByteArray& OwnMark() {
    static const QByteArray mark = QUuid::createUuid().toByteArray();
    return mark;
}

// Twips.
constexpr int maxWidth = 3000;
constexpr int plateMargin = 60;
constexpr int besidePointer = 240;

// See-through, on a plate of the selection's colour.
QPixmap PictureOf(const QString& name, const QWidget& control) {
    const QString shown =
        control.fontMetrics().elidedText(OneLine(name), Qt::ElideMiddle, Pixels(maxWidth));
    const int margin = Pixels(plateMargin);
    const QSize text = control.fontMetrics().size(Qt::TextSingleLine, shown);
    const QSize plate = text + QSize(4 * margin, 2 * margin);
    QPixmap picture(plate * control.devicePixelRatioF());
    picture.setDevicePixelRatio(control.devicePixelRatioF());
    picture.fill(Qt::transparent);

    QPainter painter(&picture);
    painter.setOpacity(0.8);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(control.palette().highlight());
    painter.drawRoundedRect(QRect(QPoint(0, 0), plate), margin, margin);
    painter.setFont(control.font());
    painter.setPen(control.palette().highlightedText().color());
    painter.drawText(QRect(QPoint(0, 0), plate), Qt::AlignCenter | Qt::TextSingleLine, shown);
    return picture;
}

}  // namespace

QMimeData* MakeDraggedRows() {
    auto content = std::make_unique<QMimeData>();
    content->setData(DraggedRowsType, OwnMark());
    return content.release();
}

void DragRow(QWidget& control, const QString& name) {
    auto* drag = new QDrag(&control);
    drag->setMimeData(MakeDraggedRows());
    drag->setPixmap(PictureOf(name, control));
    drag->setHotSpot({-Pixels(besidePointer), -Pixels(besidePointer)});
    drag->exec(Qt::CopyAction);
}

bool AcceptDraggedRows(QDropEvent& event) {
    if (event.mimeData()->data(DraggedRowsType) != OwnMark()) return false;
    event.acceptProposedAction();
    return true;
}

}  // namespace tavel
