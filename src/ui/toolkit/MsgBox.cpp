#include "ui/toolkit/MsgBox.h"

#include "ui/toolkit/Prompts.h"

namespace tavel {

MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons, const QString& title) {
    return Service<Prompter>::Get().MsgBox(text, buttons, title);
}

}  // namespace tavel
