#include "ui/support/RequestEnd.h"

#include <csignal>

namespace tavel::test {

void RequestEnd() { std::raise(SIGTERM); }

}  // namespace tavel::test
