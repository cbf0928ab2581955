#include "ui/toolkit/Banner.h"

#include "ui/toolkit/Artwork.h"

#include <QPainter>

namespace tavel {

// Painted from an icon, which has the picture for each scale.
Banner::Banner(QWidget* parent) : QWidget(parent) {
    AddArtwork(m_picture, QStringLiteral(":/artwork/banner.jpg"));
}

void Banner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_picture.paint(&painter, rect());
}

}  // namespace tavel
