#include "ui/toolkit/panel/PanelPainter.h"

#include "ui/toolkit/SystemColors.h"

namespace tavel {

namespace {

// The frame of the classic style stands back from the top for its caption, whatever its font.
constexpr int classicTop = 4;
constexpr int classicEllipse = 8;
constexpr QColor classicFrame(208, 208, 191);

}  // namespace

int FrameBarHeight(const PanelProperties& properties, std::string_view sName) {
    if (sName == "Header") {
        switch (properties.HeaderSize) {
            case 0:
                return 18;
            case 1:
                return 25;
            case 2:
                return 40;
            default:
                return 0;
        }
    }
    switch (properties.FooterSize) {
        case 0:
            return 20;
        case 1:
            return 34;
        default:
            return 0;
    }
}

int CornerEllipse(const PanelProperties& properties) {
    return properties.ContainerShapeStyle == 1 ? properties.ContainerCornerRadius : 0;
}

QColor TranslateColor(OleColor color) { return FromOleColor(color); }

PanelPainter::PanelPainter(DeviceContext& hdc, const PanelLook& look, HitAreas& areas)
    : m_hdc(hdc),
      m_look(look),
      m_properties(look.properties),
      m_areas(areas),
      m_width(hdc.Size().width()),
      m_height(hdc.Size().height()),
      m_headerHeight(FrameBarHeight(look.properties, "Header")),
      m_footerHeight(FrameBarHeight(look.properties, "Footer")) {}

void PanelPainter::DrawPanel() {
    m_hdc.Fill(TranslateColor(m_properties.BackColor));
    DrawContainer();
    if (m_properties.FooterVisible) DrawFooter();
    if (m_properties.HeaderVisible) DrawHeader();
    DrawOutline();
    if (m_properties.HeaderVisible) {
        DrawHeaderPicture();
        if (m_properties.Expandable) DrawChevron();
    }
    if (m_properties.ContainerResizable && m_properties.FooterVisible && !m_look.collapsed)
        DrawResizeGrip();
    if (m_properties.Closeable) DrawCloseButton();
    DrawContainerPicture();
}

void PanelPainter::DrawGroupBox() {
    m_hdc.Fill(TranslateColor(m_properties.BackColor));
    m_hdc.pen = {m_properties.ContainerBorderStyle, classicFrame};
    m_hdc.RoundRect({0, classicTop, m_width - 1, m_height - 1}, classicEllipse, classicEllipse);
}

void PanelPainter::DrawContainer() {
    const Edges rect{0, m_properties.HeaderVisible ? m_headerHeight - 2 : 0, m_width,
                     m_properties.FooterVisible ? m_height - m_footerHeight : m_height};
    DrawGradientDib(m_hdc, rect, m_look.colors.containerStart, m_look.colors.containerEnd);
}

void PanelPainter::DrawOutline() {
    const int ellipse = CornerEllipse(m_properties);
    m_hdc.pen = {m_properties.ContainerBorderStyle, TranslateColor(m_look.colors.border)};
    m_hdc.RoundRect({0, 0, m_width - 1, m_height - 1}, ellipse, ellipse);
}

}  // namespace tavel
