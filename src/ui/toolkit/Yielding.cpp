#include "ui/toolkit/Yielding.h"

#include <QCoreApplication>
#include <utility>

namespace tavel {

namespace {

constexpr std::int64_t shortestPause = 2;  // milliseconds

}  // namespace

Yielding::Yielding(std::function<std::int64_t()> now) : m_now(std::move(now)) {}

void Yielding::Yield() {
    if (m_last && m_now() - *m_last < shortestPause) return;
    QCoreApplication::processEvents();
    m_last = m_now();
}

}  // namespace tavel
