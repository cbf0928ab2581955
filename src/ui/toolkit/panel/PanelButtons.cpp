#include "ui/toolkit/panel/PanelPainter.h"

#include <array>

namespace tavel {

namespace {

// Poly-lines of three points each, from a box's left and top.
using Mark = std::array<std::array<QPoint, 3>, 4>;

constexpr Mark closeMark{{{QPoint(5, 5), QPoint(8, 8), QPoint(12, 4)},
                          {QPoint(6, 5), QPoint(8, 7), QPoint(11, 4)},
                          {QPoint(5, 10), QPoint(8, 7), QPoint(12, 11)},
                          {QPoint(6, 10), QPoint(8, 8), QPoint(11, 11)}}};
constexpr Mark downMark{{{QPoint(5, 4), QPoint(8, 7), QPoint(12, 3)},
                         {QPoint(6, 4), QPoint(8, 6), QPoint(11, 3)},
                         {QPoint(5, 8), QPoint(8, 11), QPoint(12, 7)},
                         {QPoint(6, 8), QPoint(8, 10), QPoint(11, 7)}}};
constexpr Mark upMark{{{QPoint(5, 7), QPoint(8, 4), QPoint(12, 8)},
                       {QPoint(6, 7), QPoint(8, 5), QPoint(11, 8)},
                       {QPoint(5, 11), QPoint(8, 8), QPoint(12, 12)},
                       {QPoint(6, 11), QPoint(8, 9), QPoint(11, 12)}}};

void DrawMark(DeviceContext& hdc, const Edges& box, const Mark& mark) {
    for (std::array<QPoint, 3> stroke : mark) {
        for (QPoint& point : stroke) point += QPoint(box.left, box.top);
        hdc.Polyline(stroke);
    }
}

// One formula for buttons and grip, though it is a box of the panel's top that it is made for: the
// area of the grip reaches below the panel, where nothing is pressed.
QRect AreaOf(const Edges& box) {
    const Edges area{box.left + 1, box.top + 1, box.right - 2, box.bottom + box.top - 3};
    return area.Sorted().ToQRect();
}

}  // namespace

Edges PanelPainter::ButtonBox() const {
    // The same for every height of the header, and without one.
    constexpr int top = 2;
    const int left = m_width - 1 - 22;
    return {left, top, left + 18, top + 16};
}

void PanelPainter::DrawButton(const Edges& box, std::optional<QRect>& area) {
    m_hdc.pen = {PS_SOLID, TranslateColor(m_look.colors.chevron)};
    const int low = box.bottom + box.top - 4;
    const std::array outline{QPoint(box.left + 1, low), QPoint(box.left + 1, box.top + 1),
                             QPoint(box.right - 2, box.top + 1),
                             QPoint(box.right - 2, box.bottom - 2), QPoint(box.left + 1, low)};
    m_hdc.Polyline(outline);
    area = AreaOf(box);
}

void PanelPainter::DrawChevron() {
    Edges box = ButtonBox();
    if (m_properties.Closeable) {
        box.left -= 19;
        box.right -= 19;
    }
    DrawButton(box, m_areas.chevron);
    DrawMark(m_hdc, box, m_look.collapsed ? downMark : upMark);
}

void PanelPainter::DrawCloseButton() {
    const Edges box = ButtonBox();
    DrawButton(box, m_areas.close);
    DrawMark(m_hdc, box, closeMark);
}

void PanelPainter::DrawResizeGrip() {
    const Edges grip{m_width - 19, m_height - 19, m_width - 2, m_height - 2};
    m_hdc.pen = {PS_SOLID, TranslateColor(m_look.colors.chevron)};
    const std::array longStrip{
        QPoint(grip.right - 4, grip.top + 1), QPoint(grip.left - 1, grip.bottom - 2),
        QPoint(grip.left, grip.bottom - 2), QPoint(grip.right - 3, grip.top + 1)};
    m_hdc.Polyline(longStrip);
    const std::array shortStrip{
        QPoint(grip.right - 4, grip.top + 6), QPoint(grip.left + 4, grip.bottom - 2),
        QPoint(grip.left + 5, grip.bottom - 2), QPoint(grip.right - 3, grip.top + 6)};
    m_hdc.Polyline(shortStrip);
    m_areas.grip = AreaOf(grip);
}

}  // namespace tavel
