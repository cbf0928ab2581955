#pragma once

#include <QString>
#include <QWidget>

namespace tavel {

// Does something to a part of one of Qt's dialogs, which goes by this name; without a name to the
// first of its kind. Where the dialog is the system's own it has no such part, and nothing is done.
template <class Part = QWidget, class Act>
void WithPart(const QWidget& dialog, const char* name, Act act) {
    if (auto* part = dialog.findChild<Part*>(QString::fromLatin1(name))) act(*part);
}

}  // namespace tavel
