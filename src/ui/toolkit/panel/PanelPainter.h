#pragma once

#include "ui/toolkit/panel/DeviceContext.h"
#include "ui/toolkit/panel/HitAreas.h"
#include "ui/toolkit/panel/PanelProperties.h"
#include "ui/toolkit/panel/PanelThemes.h"

#include <string_view>

namespace tavel {

// What the looks of a panel come from.
struct PanelLook {
    const PanelProperties& properties;
    PanelColors colors;
    unsigned headerFlags;  // of the text
    unsigned footerFlags;
    bool collapsed;
};

// The heights of a panel's bars: of its "Header" or its "Footer".
int FrameBarHeight(const PanelProperties& properties, std::string_view sName);

// The width and height of the ellipse that the panel's corners are quarters of.
int CornerEllipse(const PanelProperties& properties);

QColor TranslateColor(OleColor color);

// A gradient of bars: a fill style of 0 runs from left to right, any other from top to bottom.
void FillGradientRect(DeviceContext& hdc, const Edges& rect, OleColor start, OleColor end,
                      int mode);

// A gradient from top to bottom in the colours as they stand: of a system colour the low 24 bits.
void DrawGradientDib(DeviceContext& hdc, const Edges& rect, OleColor start, OleColor end);

// Draws a panel all over a surface of its size, and makes the hit areas of what it draws.
class PanelPainter {
  public:
    PanelPainter(DeviceContext& hdc, const PanelLook& look, HitAreas& areas);

    void DrawPanel();
    void DrawGroupBox();  // the classic style
    void DrawChevron();

  private:
    void DrawContainer();
    void DrawFooter();
    void DrawHeader();
    void DrawOutline();
    void DrawHeaderPicture();
    void DrawContainerPicture();
    void DrawBarText(Edges rect, const QString& text, OleColor color, const QFont& font,
                     unsigned flags, bool isHeader);
    void DrawPicture(QPoint place, const PanelPicture& picture, int size);
    void DrawBitmapTransparent(QPoint place, const QImage& bitmap, int size);
    void DrawCloseButton();
    void DrawResizeGrip();
    Edges ButtonBox() const;
    void DrawButton(const Edges& box, std::optional<QRect>& area);
    bool HasHeaderPicture() const;

    DeviceContext& m_hdc;
    PanelLook m_look;
    const PanelProperties& m_properties;
    HitAreas& m_areas;
    int m_width;
    int m_height;
    int m_headerHeight;
    int m_footerHeight;
};

}  // namespace tavel
