#include "platform/Activity.h"

#include <exception>
#include <utility>

namespace tavel {

namespace {

std::string failedActivity;

}  // namespace

void Doing::Begin() {
    m_exceptionsAtBegin = std::uncaught_exceptions();
    ForgetFailedActivity();
}

Doing::~Doing() {
    if (std::uncaught_exceptions() == m_exceptionsAtBegin || !failedActivity.empty()) return;
    try {
        for (const std::string_view word : m_words) {
            if (!word.empty())
                failedActivity.append(failedActivity.empty() ? "" : " ").append(word);
        }
    } catch (...) {
        failedActivity.clear();  // without memory the message tells no more than its number
    }
}

std::string TakeFailedActivity() { return std::exchange(failedActivity, {}); }

void ForgetFailedActivity() {
    if (std::uncaught_exceptions() == 0) failedActivity.clear();
}

}  // namespace tavel
