#include "platform/windows/WritePace.h"

#include <algorithm>
#include <chrono>

namespace tavel {

namespace {

constexpr std::size_t mebibyte = std::size_t{1024} * 1024;
constexpr std::size_t smallestStep = mebibyte;
constexpr std::size_t largestStep = 64 * mebibyte;

// A step in this range of time neither shows as a jerk nor costs.
constexpr std::chrono::milliseconds shortStep{50};
constexpr std::chrono::milliseconds longStep{400};

}  // namespace

bool WritePace::Wrote(const Handle& file, std::size_t bytes) {
    m_unflushed += bytes;
    if (m_unflushed < m_step) return true;
    m_unflushed = 0;
    const auto start = std::chrono::steady_clock::now();
    if (!file.Flush()) return false;
    const auto taken = std::chrono::steady_clock::now() - start;
    if (taken < shortStep) m_step = std::min(2 * m_step, largestStep);
    if (taken > longStep) m_step = std::max(m_step / 2, smallestStep);
    return true;
}

}  // namespace tavel
