#include "ui/toolkit/ImageList.h"

#include "platform/Failure.h"
#include "ui/toolkit/Artwork.h"

namespace tavel {

void ImageList::Add(const QString& key, const QString& file) {
    const QString path = QStringLiteral(":/artwork/icons/%1.png").arg(file);
    QIcon icon;
    AddArtwork(icon, path);
    // A selected row shows the same picture; Qt would tint it with the colour of the selection.
    AddArtwork(icon, path, QIcon::Selected);
    m_icons[key] = icon;
}

const QIcon& ImageList::Icon(const QString& key) const {
    const auto found = m_icons.find(key);
    if (found == m_icons.end()) Fail(failure::ListElementNotFound);
    return found->second;
}

}  // namespace tavel
