#include "platform/EndRequests.h"

namespace tavel {

class EndRequests::Pipe {};

EndRequests::EndRequests() = default;
EndRequests::~EndRequests() = default;

int EndRequests::Handle() const { return -1; }

}  // namespace tavel
