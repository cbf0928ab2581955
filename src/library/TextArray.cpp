#include "library/TextArray.h"

#include "platform/Failure.h"

#include <cstddef>
#include <cstdint>
#include <ext/pb_ds/assoc_container.hpp>
#include <ext/pb_ds/tree_policy.hpp>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

namespace tavel {

namespace {

// Each entry gets a number when it comes. The numbers keep the order of the entries, while an
// entry's place changes whenever one before it goes.
using Number = std::uint64_t;

// Entries by number, which also finds the n-th of them and tells how many come before one.
using NumberedTexts = __gnu_pbds::tree<Number, std::string, std::less<>, __gnu_pbds::rb_tree_tag,
                                       __gnu_pbds::tree_order_statistics_node_update>;

}  // namespace

class TextArray::Entries {
  public:
    Entries() = default;
    Entries(const Entries& other) : m_texts(other.m_texts), m_next(other.m_next) {}
    Entries& operator=(const Entries&) = delete;

    std::size_t Size() const { return m_texts.size(); }
    const std::string& At(std::size_t i) const { return m_texts.find_by_order(i)->second; }

    void Append() {
        const auto added = m_texts.insert({m_next, {}}).first;
        Index(added);
        ++m_next;
    }

    void Set(std::size_t i, std::string s) {
        const auto entry = m_texts.find_by_order(i);
        Unindex(entry);
        entry->second = std::move(s);
        Index(entry);
    }

    void Erase(std::size_t i) {
        const auto entry = m_texts.find_by_order(i);
        Unindex(entry);
        m_texts.erase(entry);
    }

    std::optional<std::size_t> LastOf(std::string_view s, std::size_t count) {
        MakeIndex();
        const Number end = count < Size() ? m_texts.find_by_order(count)->first : m_next;
        const auto behind = m_byText->lower_bound({s, end});
        if (behind == m_byText->begin()) return std::nullopt;
        const auto& [text, number] = *std::prev(behind);
        if (text != s) return std::nullopt;
        return m_texts.order_of_key(number);
    }

  private:
    using Entry = NumberedTexts::iterator;

    void Index(Entry entry) {
        if (m_byText) m_byText->emplace(entry->second, entry->first);
    }
    void Unindex(Entry entry) {
        if (m_byText) m_byText->erase({entry->second, entry->first});
    }
    void MakeIndex() {
        if (m_byText) return;
        m_byText.emplace();
        for (auto entry = m_texts.begin(); entry != m_texts.end(); ++entry) Index(entry);
    }

    NumberedTexts m_texts;
    Number m_next = 0;
    // Views of the entries' own texts. Most arrays are never searched.
    std::optional<std::set<std::pair<std::string_view, Number>>> m_byText;
};

TextArray::TextArray() = default;
TextArray::~TextArray() = default;
TextArray::TextArray(const TextArray& other)
    : m_entries(other.m_entries ? std::make_unique<Entries>(*other.m_entries) : nullptr) {}
TextArray::TextArray(TextArray&& other) noexcept = default;

TextArray& TextArray::operator=(TextArray other) noexcept {
    m_entries = std::move(other.m_entries);
    return *this;
}

std::size_t TextArray::Within(Integer i) const {
    if (i < 0 || !m_entries || static_cast<std::size_t>(i) >= m_entries->Size())
        Fail(failure::SubscriptOutOfRange);
    return static_cast<std::size_t>(i);
}

const std::string& TextArray::Get(Integer i) const {
    const std::size_t place = Within(i);
    return m_entries->At(place);
}

void TextArray::Set(Integer i, std::string s) {
    const std::size_t place = Within(i);
    m_entries->Set(place, std::move(s));
}

void TextArray::Redim(Integer iUpper, bool bKeep) {
    if (iUpper < 0) Fail(failure::SubscriptOutOfRange);
    if (!m_entries || !bKeep) m_entries = std::make_unique<Entries>();
    const std::size_t size = static_cast<std::size_t>(iUpper) + 1;
    while (m_entries->Size() > size) m_entries->Erase(m_entries->Size() - 1);
    while (m_entries->Size() < size) m_entries->Append();
}

void TextArray::TakeOut(Integer i) {
    const std::size_t place = Within(i);
    m_entries->Erase(place);
}

std::optional<Integer> TextArray::LastOf(std::string_view s, Integer iCount) const {
    if (iCount <= 0) return std::nullopt;
    const std::size_t count = Within(static_cast<Integer>(iCount - 1)) + 1;
    const std::optional<std::size_t> place = m_entries->LastOf(s, count);
    if (!place) return std::nullopt;
    return static_cast<Integer>(*place);
}

}  // namespace tavel
