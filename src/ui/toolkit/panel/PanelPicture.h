#pragma once

#include <QIcon>
#include <QImage>

namespace tavel {

// A picture of the panel: none, an icon, which brings its own transparency, or a bitmap, whose
// first pixel's colour is the transparent one. A bitmap has no other transparency.
class PanelPicture {
  public:
    PanelPicture() = default;
    explicit PanelPicture(const QIcon& icon) : m_icon(icon) {}
    explicit PanelPicture(const QImage& bitmap) : m_bitmap(bitmap) {}

    bool IsNone() const { return m_icon.isNull() && m_bitmap.isNull(); }
    bool IsIcon() const { return !m_icon.isNull(); }
    const QIcon& Icon() const { return m_icon; }
    const QImage& Bitmap() const { return m_bitmap; }

    bool operator==(const PanelPicture& other) const {
        return m_icon.cacheKey() == other.m_icon.cacheKey() && m_bitmap == other.m_bitmap;
    }

  private:
    QIcon m_icon;
    QImage m_bitmap;
};

}  // namespace tavel
