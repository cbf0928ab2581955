#pragma once

#include <QString>

namespace tavel {

// What the user is told of files that the program can't take.
QString RefusalOfSeveralFolders();
QString RefusalOfLongPath();
QString RefusalOf(const QString& file);  // of one that has no drive path or is gone

}  // namespace tavel
