#include "platform/EventLoop.h"

#include "platform/Service.h"

namespace tavel {

void DoEvents() { Service<EventLoop>::Get().Yield(); }

}  // namespace tavel
