#include "platform/EventLoop.h"

#include "platform/UpCall.h"

namespace tavel {

void DoEvents() { UpCall<EventLoop>::Get().Yield(); }

}  // namespace tavel
