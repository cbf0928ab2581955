#include "ui/toolkit/Artwork.h"

#include <QFileInfo>

namespace tavel {

void AddArtwork(QIcon& icon, const QString& file, QIcon::Mode mode) {
    const QFileInfo parts(file);
    const QString twice = parts.path() + QLatin1Char('/') + parts.completeBaseName() +
                          QStringLiteral("@2x.") + parts.suffix();
    for (const QString& size : {file, twice}) {
        QPixmap picture(size);
        picture.setDevicePixelRatio(1);
        icon.addPixmap(picture, mode);
    }
}

}  // namespace tavel
