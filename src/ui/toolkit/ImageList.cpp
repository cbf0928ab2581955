#include "ui/toolkit/ImageList.h"

#include "platform/Failure.h"
#include "ui/toolkit/Artwork.h"

#include <QFile>

namespace tavel {

void ImageList::Add(const QString& key, const QString& file, const char* text) {
    const QString path = QStringLiteral(":/artwork/icons/%1.png");
    const QString plain = path.arg(file);
    const QString selected = path.arg(file + QStringLiteral("-selected"));
    QIcon icon;
    AddArtwork(icon, plain);
    // Left to itself, Qt would tint the picture with the colour of the selection.
    AddArtwork(icon, QFile::exists(selected) ? selected : plain, QIcon::Selected);
    m_pictures[key] = {icon, text};
}

const ImageList::Picture& ImageList::At(const QString& key) const {
    const auto found = m_pictures.find(key);
    if (found == m_pictures.end()) Fail(failure::ListElementNotFound);
    return found->second;
}

}  // namespace tavel
