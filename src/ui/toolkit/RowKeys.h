#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace tavel {

// Finds rows by their keys. It holds row numbers alone and asks for a row's key with
// `keyOf(row)`, so that the keys stand in the rows and nowhere else. When row numbers change it is
// cleared and filled anew.
class RowKeys {
  public:
    void Clear() {
        m_slots.clear();
        m_count = 0;
    }

    // The row with the key, or -1.
    template <class KeyOf>
    int Find(std::string_view key, KeyOf&& keyOf) const {
        return m_slots.empty() ? -1 : m_slots[SlotOf(key, keyOf)];
    }

    // False, with nothing changed, when another row has the key of this one.
    template <class KeyOf>
    bool Insert(int row, KeyOf&& keyOf) {
        if (m_slots.size() < 2 * (m_count + 1)) Grow(keyOf);
        int& slot = m_slots[SlotOf(keyOf(row), keyOf)];
        if (slot >= 0) return false;
        slot = row;
        ++m_count;
        return true;
    }

  private:
    // Where the key is or would be; the table is never full.
    template <class KeyOf>
    std::size_t SlotOf(std::string_view key, KeyOf&& keyOf) const {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = std::hash<std::string_view>()(key) & mask;
        while (m_slots[slot] >= 0 && keyOf(m_slots[slot]) != key) slot = (slot + 1) & mask;
        return slot;
    }

    template <class KeyOf>
    void Grow(KeyOf&& keyOf) {
        std::vector<int> former(m_slots.empty() ? 16 : 4 * m_slots.size(), -1);
        former.swap(m_slots);
        for (const int row : former) {
            if (row >= 0) m_slots[SlotOf(keyOf(row), keyOf)] = row;
        }
    }

    std::vector<int> m_slots;  // a power of two of them; -1 is a free one
    std::size_t m_count = 0;
};

}  // namespace tavel
