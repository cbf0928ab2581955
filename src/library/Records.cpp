#include "library/Records.h"

#include "platform/Failure.h"

namespace tavel {

namespace {

std::size_t Within(const std::vector<std::string>& entries, Integer i) {
    if (i < 0 || static_cast<std::size_t>(i) >= entries.size()) Fail(failure::SubscriptOutOfRange);
    return static_cast<std::size_t>(i);
}

}  // namespace

const std::string& TextArray::Get(Integer i) const { return m_entries[Within(m_entries, i)]; }

void TextArray::Set(Integer i, std::string s) { m_entries[Within(m_entries, i)] = std::move(s); }

void TextArray::Redim(Integer iUpper, bool bKeep) {
    if (iUpper < 0) Fail(failure::SubscriptOutOfRange);
    if (!bKeep) m_entries.clear();
    m_entries.resize(static_cast<std::size_t>(iUpper) + 1);
}

}  // namespace tavel
