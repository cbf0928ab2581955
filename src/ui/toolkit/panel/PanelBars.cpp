#include "ui/toolkit/panel/PanelPainter.h"

namespace tavel {

void FillGradientRect(DeviceContext& hdc, const Edges& rect, OleColor start, OleColor end,
                      int mode) {
    hdc.GradientFill(rect, TranslateColor(start), TranslateColor(end),
                     mode == 0 ? Qt::Horizontal : Qt::Vertical);
}

// The gradient is made as a picture that is a row less high than its place, so that the place's
// last row keeps what is there.
void DrawGradientDib(DeviceContext& hdc, const Edges& rect, OleColor start, OleColor end) {
    const int rows = rect.Height();
    if (rows < 2) return;
    constexpr OleColor plain = 0xFFFFFF;
    const QColor from = TranslateColor(start & plain);
    const QColor to = TranslateColor(end & plain);
    QImage picture(1, rows - 1, QImage::Format_RGB32);
    for (int i = 0; i < picture.height(); ++i)
        picture.setPixelColor(0, i, GradientStep(from, to, i, rows));
    hdc.StretchPicture(picture, {rect.left, rect.top, rect.right, rect.bottom - 1});
}

void PanelPainter::DrawFooter() {
    const Edges bar{0, m_height - m_footerHeight, m_width - 1, m_height};
    FillGradientRect(m_hdc, bar, m_look.colors.footerStart, m_look.colors.footerEnd,
                     m_properties.FooterFillStyle);
    DrawBarText(bar, m_properties.FooterText, m_look.colors.footerText, m_properties.FooterTextFont,
                m_look.footerFlags, false);
}

void PanelPainter::DrawHeader() {
    // Custom colours leave a column more to the outline than a theme's do, and the text's room ends
    // with them.
    Edges bar{0, 1, m_width - (m_properties.UseCustomColors ? 2 : 1), m_headerHeight};
    FillGradientRect(m_hdc, {0, 0, bar.right, bar.bottom}, m_look.colors.headerStart,
                     m_look.colors.headerEnd, m_properties.HeaderFillStyle);
    bar.left += 3 + m_properties.HeaderPictureSize;
    DrawBarText(bar, m_properties.HeaderText, m_look.colors.headerText, m_properties.HeaderTextFont,
                m_look.headerFlags, true);
}

void PanelPainter::DrawBarText(Edges rect, const QString& text, OleColor color, const QFont& font,
                               unsigned flags, bool isHeader) {
    constexpr int button = 20;
    constexpr int missingPicture = 18;  // whatever the size that it would have
    rect = {rect.left + 3, rect.top + 2, rect.right - 3, rect.bottom - 1};
    if (isHeader) {
        if (m_properties.Expandable) rect.right -= button;
        if (m_properties.Closeable) rect.right -= button;
        if (!HasHeaderPicture()) rect.left -= missingPicture;
    }
    m_hdc.font = font;
    m_hdc.textColor = TranslateColor(color);
    m_hdc.DrawText(text, rect, flags);
}

}  // namespace tavel
