#include "ui/toolkit/panel/PanelPainter.h"

namespace tavel {

bool PanelPainter::HasHeaderPicture() const {
    return m_properties.HeaderPictureVisible && !m_properties.HeaderPicture.IsNone();
}

void PanelPainter::DrawHeaderPicture() {
    if (!HasHeaderPicture()) return;
    const int size = m_properties.HeaderPictureSize;
    DrawPicture(QPoint(4, (m_headerHeight - size) / 2), m_properties.HeaderPicture, size);
}

void PanelPainter::DrawContainerPicture() {
    if (!m_properties.ContainerPictureVisible || m_properties.ContainerPicture.IsNone()) return;
    const int header = m_properties.HeaderVisible ? m_headerHeight : 0;
    DrawPicture(QPoint(m_properties.ContainerPictureBufferLeft + 4,
                       header + m_properties.ContainerPictureBufferTop + 2),
                m_properties.ContainerPicture, m_properties.ContainerPictureSize);
}

void PanelPainter::DrawPicture(QPoint place, const PanelPicture& picture, int size) {
    if (picture.IsIcon()) {
        m_hdc.DrawIcon(picture.Icon(), place, size);
    } else {
        DrawBitmapTransparent(place, picture.Bitmap(), size);
    }
}

void PanelPainter::DrawBitmapTransparent(QPoint place, const QImage& bitmap, int size) {
    m_hdc.DrawBitmap(bitmap, bitmap.pixel(0, 0), place, size);
}

}  // namespace tavel
