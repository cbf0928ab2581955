#include "ui/toolkit/Prompts.h"

#include "ui/toolkit/RealPrompter.h"

namespace tavel {

namespace {

Prompter* s_current = nullptr;

}  // namespace

Prompter& Service<Prompter>::Get() {
    static RealPrompter real;
    return s_current != nullptr ? *s_current : real;
}

void Service<Prompter>::Use(Prompter* prompter) { s_current = prompter; }

}  // namespace tavel
