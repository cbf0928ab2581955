#include "ui/toolkit/InputBox.h"

#include "ui/toolkit/Prompts.h"

namespace tavel {

QString InputBox(const QString& prompt, const QString& title, const QString& defaultText) {
    return Service<Prompter>::Get().InputBox(prompt, title, defaultText);
}

}  // namespace tavel
