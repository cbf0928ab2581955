#pragma once

#include <QString>
#include <QWidget>

namespace tavel {

// Whether one of Qt's dialogs is the system's own, which only the dialog's exec() can show.
bool IsSystems(const QWidget& dialog);

// Does something to a part of one of Qt's dialogs, which goes by this name; without a name to the
// first of its kind. Where the dialog is the system's own it has no such part, and nothing is done.
template <class Part = QWidget, class Act>
void WithPart(const QWidget& dialog, const char* name, Act act) {
    if (auto* part = dialog.findChild<Part*>(QString::fromLatin1(name))) act(*part);
}

// For the destructor of a dialog that goes while a box stands over it, such as a question of Qt's:
// such a box may live on the stack, and must not be deleted with its parent. It is cancelled.
void LetBoxesGo(const QWidget& dialog);

}  // namespace tavel
