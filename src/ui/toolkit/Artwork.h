#pragma once

#include <QIcon>

namespace tavel {

// Adds a picture in both sizes that it is kept in, "name.png" and "name@2x.png", to be drawn at any
// size up to the second. Qt by itself takes the second for dense screens alone.
void AddArtwork(QIcon& icon, const QString& file, QIcon::Mode mode = QIcon::Normal);

}  // namespace tavel
