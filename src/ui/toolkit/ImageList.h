#pragma once

#include <QIcon>
#include <QString>
#include <map>

namespace tavel {

// Icons under keys.
class ImageList {
  public:
    // Takes the icon `file` of the program's artwork ("photo" is :/artwork/icons/photo.png).
    void Add(const QString& key, const QString& file);

    // Fails with 35601 when no icon has the key.
    const QIcon& Icon(const QString& key) const;

  private:
    std::map<QString, QIcon> m_icons;
};

}  // namespace tavel
