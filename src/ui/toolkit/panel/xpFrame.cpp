#include "ui/toolkit/panel/xpFrame.h"

#include "ui/toolkit/Twips.h"
#include "ui/toolkit/panel/InnerLabel.h"
#include "ui/toolkit/panel/PanelPainter.h"
#include "ui/toolkit/panel/RoundRectangle.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <limits>

namespace tavel {

namespace {

// Drawing calls see no further than that.
int Coordinate(Long value) {
    using Limits = std::numeric_limits<Integer>;
    return std::clamp<Long>(value, Limits::min(), Limits::max());
}

Edges EdgesOf(Long left, Long top, Long right, Long bottom) {
    return {Coordinate(left), Coordinate(top), Coordinate(right), Coordinate(bottom)};
}

// An empty mask would be none at all; one beside the widget hides all of it.
void MaskWith(QWidget& widget, const QRegion& region) {
    widget.setMask(region.isEmpty() ? QRegion(-1, -1, 1, 1) : region);
}

QRegion RoundRegionOf(QSize size, int ellipse) {
    return RoundRectRegion({0, 0, size.width(), size.height()}, ellipse, ellipse);
}

}  // namespace

xpFrame::xpFrame(QWidget* parent, PanelHost* host)
    : QWidget(parent),
      m_host(host != nullptr ? *host : m_window),
      m_label(new InnerLabel(*this)),
      m_hwnd(this),
      m_own(size(), devicePixelRatioF()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    InitProperties();
    hdc(nullptr);
}

xpFrame::~xpFrame() = default;

void xpFrame::hdc(DeviceContext*) {
    const QSize present = m_memory ? m_memory->Size() : QSize();
    const QSize needed = present.expandedTo(size());
    const qreal ratio = devicePixelRatioF();
    if (needed != present || ratio != m_memory->Ratio())
        m_memory = std::make_unique<DeviceContext>(needed, ratio);
}

void xpFrame::Expand() { SetExpanded(1); }

void xpFrame::Collapse() { SetExpanded(-1); }

void xpFrame::OnTop() { m_host.zorder(0); }

void xpFrame::closeMe() { m_host.visible(false); }

void xpFrame::showMe() { m_host.visible(true); }

void xpFrame::Refresh() { Redraw(); }

void xpFrame::SetExpanded(int direction) {
    const bool collapses = direction <= 0;
    if (collapses) m_expandedHeight = Twips(height());
    if (!m_expandedHeight) return;
    // The resize draws the panel, and does so by the flag.
    m_collapsed = collapses;
    const Long target =
        collapses ? Twips(FrameBarHeight(m_properties, "Header")) : *m_expandedHeight;
    resize(width(), Pixels(target));
    Refresh();
}

void xpFrame::SmoothForm(QWidget& form, Long Curvature) {
    MaskWith(form, RoundRegionOf(form.size(), Coordinate(Curvature)));
}

void xpFrame::UtilDrawShapeStyle(DeviceContext& lngHdc, Long lngLeft, Long lngTop, Long lngWidth,
                                 Long lngHeight, Long radius) {
    lngHdc.RoundRect(EdgesOf(lngLeft, lngTop, lngWidth, lngHeight), Coordinate(radius),
                     Coordinate(radius));
}

void xpFrame::UtilDrawBackground(DeviceContext& lngHdc, OleColor colorStart, OleColor colorEnd,
                                 Long lngLeft, Long lngTop, Long lngWidth, Long lngHeight,
                                 Long horizontal) {
    FillGradientRect(lngHdc, EdgesOf(lngLeft, lngTop, lngWidth, lngHeight), colorStart, colorEnd,
                     horizontal);
}

void xpFrame::Redraw() {
    FitSurface();
    ShapeWindow();
    ShowInnerLabel();
    PanelPainter painter(m_own, Look(), m_areas);
    if (m_properties.ClassicXPStyle) {
        painter.DrawGroupBox();
    } else {
        painter.DrawPanel();
    }
    update();
}

void xpFrame::RedrawFast() {
    FitSurface();
    ShapeWindow();
    m_own.Fill(TranslateColor(Look().colors.containerStart));
    ForEachChild([](QWidget& child) { child.hide(); });
    update();
}

void xpFrame::FitSurface() {
    if (m_own.Size() != size() || m_own.Ratio() != devicePixelRatioF())
        m_own = DeviceContext(size(), devicePixelRatioF());
}

void xpFrame::ShapeWindow() {
    SetRegion(RoundRegionOf(size(), m_properties.ClassicXPStyle ? 0 : CornerEllipse(m_properties)));
}

void xpFrame::SetRegion(const QRegion& region) { MaskWith(*this, region); }

void xpFrame::ShowInnerLabel() {
    m_label->setVisible(m_properties.ClassicXPStyle);
    if (!m_properties.ClassicXPStyle) return;
    m_label->setGeometry(rect());
    m_label->setText(m_properties.HeaderText);
    m_label->setFont(WholeFont(m_properties.HeaderTextFont));
    m_label->SetBackColor(TranslateColor(m_properties.BackColor));
    m_label->raise();
}

PanelLook xpFrame::Look() const {
    return {m_properties, m_properties.UseCustomColors ? CustomPanelColors(m_properties) : m_theme,
            m_headerFlags, m_footerFlags, m_collapsed};
}

// What is done to one child may be the end of another, or take it away.
void xpFrame::ForEachChild(const std::function<void(QWidget&)>& act) {
    QList<QPointer<QWidget>> children;
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child != m_label && !child->isWindow()) children.append(child);
    }
    for (const QPointer<QWidget>& child : children) {
        if (child && child->parentWidget() == this && !child->isWindow()) act(*child);
    }
}

void xpFrame::ShowChildControls() {
    ForEachChild([](QWidget& child) { child.show(); });
    ForEachChild([](QWidget& child) { child.update(); });
}

void xpFrame::changeEvent(QEvent* event) {
    // The setting's colours may be others now.
    if (event->type() == QEvent::PaletteChange) Redraw();
    if (event->type() == QEvent::EnabledChange && !isEnabled()) GiveUpAllBut(Qt::NoButton);
    QWidget::changeEvent(event);
}

void xpFrame::paintEvent(QPaintEvent*) {
    // The panel may have come to a screen of another ratio.
    if (m_own.Ratio() != devicePixelRatioF()) Redraw();
    QPainter(this).drawImage(0, 0, m_own.Surface());
}

void xpFrame::resizeEvent(QResizeEvent*) {
    if (m_resizing) {
        RedrawFast();
    } else {
        Redraw();
    }
}

void xpFrame::showEvent(QShowEvent*) { hdc(nullptr); }

}  // namespace tavel
