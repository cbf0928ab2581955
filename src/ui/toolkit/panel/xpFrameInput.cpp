#include "ui/toolkit/Twips.h"
#include "ui/toolkit/panel/InnerLabel.h"
#include "ui/toolkit/panel/PanelPainter.h"
#include "ui/toolkit/panel/xpFrame.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <utility>

namespace tavel {

namespace {

int ButtonOf(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return 1;
        case Qt::RightButton:
            return 2;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

int ButtonsOf(Qt::MouseButtons buttons) {
    int sum = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons.testFlag(button)) sum += ButtonOf(button);
    }
    return sum;
}

int ShiftOf(Qt::KeyboardModifiers keys) {
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) |
           (keys.testFlag(Qt::ControlModifier) ? 2 : 0) | (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

float XOf(const QMouseEvent& event) { return static_cast<float>(event.position().x()); }

float YOf(const QMouseEvent& event) { return static_cast<float>(event.position().y()); }

// The pixel that the pointer is in.
QPoint PixelOf(const QPointF& position) {
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

// A key that a child has no use for comes to the panel as well.
bool IsInFocus(const QWidget& panel) { return panel.window()->focusWidget() == &panel; }

}  // namespace

// A receiver of an event may move the panel, so that what counts is where on the screen the pointer
// was before. The event's own place there has lost its fractions.
bool xpFrame::IsIn(const std::optional<QRect>& area, const QPointF& cursor) const {
    return area && area->contains(PixelOf(mapFromGlobal(cursor)));
}

// A child that is pressed keeps the mouse until no button is down, be it that it leaves the press
// or the moves to the panel. A resize would hide the child, and the release come to nobody.
void xpFrame::NotePress(const QMouseEvent& event) {
    const bool isFirst = event.buttons() == Qt::MouseButtons(event.button());
    if (m_held == Qt::NoButton)
        m_hasMouse = isFirst && childAt(PixelOf(event.position())) == nullptr;
    m_held |= event.button();
    QCoreApplication::instance()->installEventFilter(this);
}

void xpFrame::NoteRelease(Qt::MouseButtons buttons) {
    m_held &= ~buttons;
    if (m_held == Qt::NoButton) QCoreApplication::instance()->removeEventFilter(this);
}

// The release of a press that the panel holds may go to a menu, a dialog or, when the child that
// has the mouse is gone, to nobody.
void xpFrame::GiveUpAllBut(Qt::MouseButtons down) {
    const Qt::MouseButtons lost = m_held & ~down;
    if (lost == Qt::NoButton) return;
    NoteRelease(lost);
    if (!lost.testFlag(Qt::LeftButton)) return;
    m_isClick = false;
    StopDrag();
    ShowAfterDrag();
}

void xpFrame::mousePressEvent(QMouseEvent* event) {
    NotePress(*event);
    const QPointF cursor = mapToGlobal(event->position());
    Q_EMIT MouseDown(ButtonOf(event->button()), ShiftOf(event->modifiers()), XOf(*event),
                     YOf(*event));
    // A receiver may have waited for the release, or hidden the panel.
    if (event->button() == Qt::LeftButton && m_held.testFlag(Qt::LeftButton)) {
        m_isClick = true;
        m_mouseX = XOf(*event);
        m_mouseY = YOf(*event);
        if (IsIn(m_areas.grip, cursor)) {
            setCursor(Qt::SizeFDiagCursor);
        } else {
            m_moving = true;
            unsetCursor();
        }
    }
    m_label->update();
}

void xpFrame::mouseMoveEvent(QMouseEvent* event) {
    GiveUpAllBut(event->buttons());
    if (event->buttons() != Qt::NoButton && m_held == Qt::NoButton) return;
    const QPointF cursor = mapToGlobal(event->position());
    const bool wasResizing = m_resizing;
    Q_EMIT MouseMove(ButtonsOf(event->buttons()), ShiftOf(event->modifiers()), XOf(*event),
                     YOf(*event), m_resizing, m_moving);
    const bool isStopped = wasResizing && !m_resizing;
    const bool isOfChild = !m_hasMouse && event->buttons() != Qt::NoButton;
    if (isOfChild) m_resizing = false;
    if (m_resizing) m_moving = false;
    if (!m_moving && IsIn(m_areas.grip, cursor)) {
        setCursor(Qt::SizeFDiagCursor);
        if (m_held.testFlag(Qt::LeftButton) && !isStopped && !isOfChild) m_resizing = true;
    } else {
        unsetCursor();
    }
    if (m_properties.ClassicXPStyle) return;
    if (m_moving && m_properties.ContainerMoveable) MoveTo(cursor);
    if (m_resizing && m_properties.ContainerResizable) ResizeTo(cursor);
}

// A child that has no pointer of its own is pointed at with the panel's, and the panel hears of no
// move over it.
void xpFrame::childEvent(QChildEvent* event) {
    if (event->added()) event->child()->installEventFilter(this);
    QWidget::childEvent(event);
}

bool xpFrame::eventFilter(QObject* watched, QEvent* event) {
    const bool isChild = watched->parent() == this;
    if (isChild && event->type() == QEvent::Enter && cursor().shape() == Qt::SizeFDiagCursor)
        unsetCursor();
    // While a button is held, every press in the program comes by, first on its way to a window.
    // The next one of that button may be kept by a child, and the moves beside the child would be
    // taken for a drag of the panel.
    if (watched->isWindowType() && event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        GiveUpAllBut(press.buttons().setFlag(press.button(), false));
    }
    return QWidget::eventFilter(watched, event);
}

void xpFrame::hideEvent(QHideEvent*) { GiveUpAllBut(Qt::NoButton); }

void xpFrame::MoveTo(const QPointF& cursor) {
    if (isWindow()) return;
    const QPointF inParent = parentWidget()->mapFromGlobal(cursor);
    const Long left = RoundToLong(inParent.x() - m_mouseX);
    const Long top = RoundToLong(inParent.y() - m_mouseY);
    move(left, top);
    Q_EMIT Move(left, top);
}

void xpFrame::ResizeTo(const QPointF& cursor) {
    const QPoint corner = PixelOf(mapFromGlobal(cursor));
    const QSize wanted = QSize(corner.x(), corner.y()).expandedTo(SmallestSize());
    resize(wanted);
    if (parentWidget() != nullptr) parentWidget()->update();
    update();
    Q_EMIT Resize(width(), height());
}

QSize xpFrame::SmallestSize() const {
    constexpr int bare = 64;
    constexpr int button = 22;
    constexpr int belowPicture = 4;
    QSize size(bare, 0);
    if (m_properties.HeaderVisible) size.rheight() += FrameBarHeight(m_properties, "Header");
    if (m_properties.FooterVisible) size.rheight() += FrameBarHeight(m_properties, "Footer");
    if (m_properties.ContainerPictureVisible && !m_properties.ContainerPicture.IsNone()) {
        const int side = m_properties.ContainerPictureSize;
        size += QSize(m_properties.ContainerPictureBufferLeft + side,
                      m_properties.ContainerPictureBufferTop + side + belowPicture);
    }
    if (m_properties.Expandable) size.rwidth() += button;
    if (m_properties.Closeable) size.rwidth() += button;
    return size;
}

void xpFrame::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_held.testFlag(event->button())) return;
    const QPointF cursor = mapToGlobal(event->position());
    const bool isLeft = event->button() == Qt::LeftButton;
    const bool isClick = isLeft && std::exchange(m_isClick, false);
    // All of this press is over when it is told: a receiver may let moves and the next press come.
    NoteRelease(event->button());
    if (isLeft) StopDrag();
    Q_EMIT MouseUp(ButtonOf(event->button()), ShiftOf(event->modifiers()), XOf(*event),
                   YOf(*event));
    if (!isLeft) return;
    const bool isInside = IsIn(rect(), cursor);
    ReleaseLeft(*event, cursor);
    if (!isClick || !isInside) return;
    Q_EMIT Click();
    m_label->update();
}

// The second press of a double click is no press of its own, and its release no click.
void xpFrame::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    NotePress(*event);
    m_isClick = false;
    Q_EMIT DblClick();
    m_label->update();
}

void xpFrame::ReleaseLeft(const QMouseEvent& event, const QPointF& cursor) {
    if (m_properties.Closeable && IsIn(m_areas.close, cursor)) closeMe();
    if (m_properties.Expandable && IsIn(m_areas.chevron, cursor)) ClickChevron(event);
    StopDrag();
    ShowAfterDrag();
}

// The next press, which may have come already, has a drag of its own.
void xpFrame::StopDrag() {
    if (m_held.testFlag(Qt::LeftButton)) return;
    m_moving = false;
    m_resizing = false;
}

void xpFrame::ShowAfterDrag() {
    Redraw();
    ShowChildControls();
}

void xpFrame::ClickChevron(const QMouseEvent& event) {
    StopDrag();
    const auto tell = [&](bool collapse) {
        Q_EMIT ChevronClick(ButtonOf(event.button()), ShiftOf(event.modifiers()), XOf(event),
                            YOf(event), collapse, FrameBarHeight(m_properties, "Footer"),
                            FrameBarHeight(m_properties, "Header"), Twips(height()));
    };
    if (m_collapsed) {
        Expand();
        tell(false);
    } else {
        tell(true);
        Collapse();
    }
    PanelPainter(m_own, Look(), m_areas).DrawChevron();
}

void xpFrame::focusInEvent(QFocusEvent*) {
    if (m_properties.ZOrderOnFocus) OnTop();
    m_label->update();
}

void xpFrame::keyPressEvent(QKeyEvent* event) {
    if (IsInFocus(*this)) TellKey(*event);
    QWidget::keyPressEvent(event);
}

void xpFrame::TellKey(const QKeyEvent& event) {
    Q_EMIT KeyDown(event.key(), ShiftOf(event.modifiers()));
    const QList<uint> characters = event.text().toUcs4();
    // The key of deletion is no character to the setting, though it is one to Qt.
    if (!characters.isEmpty() && event.key() != Qt::Key_Delete)
        Q_EMIT KeyPress(static_cast<int>(characters.first()));
}

void xpFrame::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat() && IsInFocus(*this))
        Q_EMIT KeyUp(event->key(), ShiftOf(event->modifiers()));
    QWidget::keyReleaseEvent(event);
}

}  // namespace tavel
