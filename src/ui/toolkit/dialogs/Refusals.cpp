#include "ui/toolkit/dialogs/Refusals.h"

#include "core/PublicStuff.h"

#include <QObject>

namespace tavel {

QString RefusalOfSeveralFolders() {
    return QObject::tr("Files of several folders can't be taken at once.");
}

QString RefusalOfLongPath() {
    return QObject::tr("A path of more than %1 characters can't be taken.").arg(MaxPathCharacters);
}

QString RefusalOf(const QString& file) { return QObject::tr("%1 can't be reached.").arg(file); }

}  // namespace tavel
