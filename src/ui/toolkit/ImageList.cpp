#include "ui/toolkit/ImageList.h"

#include "platform/Failure.h"

namespace tavel {

void ImageList::Add(const QString& key, const QString& file) {
    m_icons[key] = QIcon(QStringLiteral(":/artwork/icons/%1.png").arg(file));
}

const QIcon& ImageList::Icon(const QString& key) const {
    const auto found = m_icons.find(key);
    if (found == m_icons.end()) Fail(failure::ListElementNotFound);
    return found->second;
}

}  // namespace tavel
