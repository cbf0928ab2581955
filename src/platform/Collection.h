#pragma once

#include "platform/Failure.h"
#include "platform/Text.h"

#include <cstddef>
#include <iterator>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavel {

// The run-time's keyed, ordered collection: entries keep the order in which they came and are
// reached by a position from 1 or by a key that matches without regard to case. The empty text is
// a key like any other. References to entries stay good until the entry is removed.
template <class T>
class Collection {
  public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection(Collection&&) = default;
    Collection& operator=(const Collection&) = delete;
    Collection& operator=(Collection&&) = default;

    Long Count() const { return static_cast<Long>(m_entries.size()); }

    // Fails with 457 when the key is there already.
    T& Add(std::string_view key, T value) {
        const bool isNumbered = IsNumbered();
        const auto entry = m_entries.insert(m_entries.end(), {LowerCase(key), std::move(value)});
        if (!m_byKey.try_emplace(entry->key, entry).second) {
            m_entries.pop_back();
            Fail(failure::KeyAlreadyThere);
        }
        if (isNumbered) m_byPosition.push_back(&*entry);
        return entry->value;
    }

    // Fails with 9 when the position is outside 1 to Count.
    T& Item(Long position) { return EntryAt(position).value; }
    const T& Item(Long position) const { return EntryAt(position).value; }

    // Fails with 5 when no entry has the key.
    T& Item(std::string_view key) { return EntryOf(key)->value; }
    const T& Item(std::string_view key) const { return EntryOf(key)->value; }

    bool Has(std::string_view key) const { return m_byKey.count(LowerCase(key)) != 0; }

    // Fails with 5 when no entry has the key.
    void Remove(std::string_view key) {
        const auto gone = EntryOf(key);
        const bool isLast = std::next(gone) == m_entries.end();
        if (isLast && IsNumbered())
            m_byPosition.pop_back();
        else
            m_byPosition.clear();
        m_byKey.erase(gone->key);
        m_entries.erase(gone);
        ++m_removals;
    }

    // Fails with 9 when the position is outside 1 to Count.
    void Remove(Long position) {
        const auto gone = m_byKey.find(EntryAt(position).key)->second;
        m_byPosition.erase(m_byPosition.begin() + (position - 1));
        m_byKey.erase(gone->key);
        m_entries.erase(gone);
        ++m_removals;
    }

    void Clear() {
        m_byPosition.clear();
        m_byKey.clear();
        m_entries.clear();
        ++m_removals;
    }

    // Rises whenever an entry goes, so that who keeps an index of the entries can tell.
    std::size_t Removals() const { return m_removals; }

  private:
    struct Entry {
        std::string key;
        T value;
    };

    using Place = typename std::list<Entry>::iterator;

    bool IsNumbered() const { return m_byPosition.size() == m_entries.size(); }

    Entry& EntryAt(Long position) const {
        if (position < 1 || position > Count()) Fail(failure::SubscriptOutOfRange);
        if (!IsNumbered()) {
            for (Entry& entry : m_entries) m_byPosition.push_back(&entry);
        }
        return *m_byPosition[static_cast<std::size_t>(position) - 1];
    }

    Place EntryOf(std::string_view key) const {
        const auto found = m_byKey.find(LowerCase(key));
        if (found == m_byKey.end()) Fail(failure::InvalidProcedureCall);
        return found->second;
    }

    mutable std::list<Entry> m_entries;
    std::unordered_map<std::string_view, Place> m_byKey;  // views of the entries' own keys
    // All entries, or none since one went from the midst of them: who removes thousands in a row
    // asks for none by its position.
    mutable std::vector<Entry*> m_byPosition;
    std::size_t m_removals = 0;
};

}  // namespace tavel
