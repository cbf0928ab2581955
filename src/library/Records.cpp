#include "library/Records.h"

#include "platform/Failure.h"

#include <algorithm>
#include <cstddef>

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

void TextArray::CloseGap(Integer i, Integer iUpper) {
    const auto first = m_entries.begin();
    const auto gap = static_cast<std::ptrdiff_t>(Within(m_entries, i));
    const auto last = static_cast<std::ptrdiff_t>(Within(m_entries, iUpper));
    if (gap < last) std::move(first + gap + 1, first + last + 1, first + gap);
}

}  // namespace tavel
