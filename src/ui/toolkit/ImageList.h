#pragma once

#include <QIcon>
#include <QString>
#include <map>

namespace tavel {

// Icons under keys.
class ImageList {
  public:
    // Takes the icon `file` of the program's artwork ("photo" is :/artwork/icons/photo.png), and
    // for selected rows the one with a line around it, if there is one ("photo-selected"). The
    // text says what the icon says; it outlives the list.
    void Add(const QString& key, const QString& file, const char* text = "");

    // Both fail with 35601 when no icon has the key.
    const QIcon& Icon(const QString& key) const { return At(key).icon; }
    const char* Text(const QString& key) const { return At(key).text; }

  private:
    struct Picture {
        QIcon icon;
        const char* text;
    };

    const Picture& At(const QString& key) const;

    std::map<QString, Picture> m_pictures;
};

}  // namespace tavel
