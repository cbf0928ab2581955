#pragma once

#include "platform/Failure.h"
#include "platform/Text.h"

#include <cstddef>
#include <memory>
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
    Long Count() const { return static_cast<Long>(m_entries.size()); }

    // Fails with 457 when the key is there already.
    T& Add(std::string_view key, T value) {
        auto entry = std::make_unique<Entry>(Entry{LowerCase(key), std::move(value)});
        auto [place, isNew] = m_byKey.try_emplace(entry->key, entry.get());
        if (!isNew) Fail(failure::KeyAlreadyThere);
        m_entries.push_back(std::move(entry));
        return m_entries.back()->value;
    }

    // Fails with 9 when the position is outside 1 to Count.
    T& Item(Long position) { return EntryAt(position).value; }
    const T& Item(Long position) const { return EntryAt(position).value; }

    // Fails with 5 when no entry has the key.
    T& Item(std::string_view key) { return EntryOf(key).value; }
    const T& Item(std::string_view key) const { return EntryOf(key).value; }

    bool Has(std::string_view key) const { return m_byKey.count(LowerCase(key)) != 0; }

    // Fails with 5 when no entry has the key.
    void Remove(std::string_view key) {
        const Entry* gone = &EntryOf(key);
        m_byKey.erase(gone->key);
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].get() != gone) continue;
            m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(i));
            break;
        }
        ++m_removals;
    }

    void Clear() {
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

    Entry& EntryAt(Long position) const {
        if (position < 1 || position > Count()) Fail(failure::SubscriptOutOfRange);
        return *m_entries[static_cast<std::size_t>(position) - 1];
    }

    Entry& EntryOf(std::string_view key) const {
        const auto found = m_byKey.find(LowerCase(key));
        if (found == m_byKey.end()) Fail(failure::InvalidProcedureCall);
        return *found->second;
    }

    std::vector<std::unique_ptr<Entry>> m_entries;
    std::unordered_map<std::string_view, Entry*> m_byKey;  // views into the entries' own keys
    std::size_t m_removals = 0;
};

}  // namespace tavel
