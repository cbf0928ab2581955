#include "ui/toolkit/Prompts.h"

#include "ui/toolkit/RealPrompter.h"

namespace tavel {

template <>
Prompter* OwnService<Prompter>() {
    static RealPrompter real;
    return &real;
}

}  // namespace tavel
