#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <iterator>
#include <string_view>
#include <vector>

namespace tavel {

// Finds rows by their keys. It holds row numbers alone, which start at 0, and asks for a row's key
// with `keyOf(row)`, so that the keys stand in the rows and nowhere else. When row numbers change
// it is cleared and filled anew.
class RowKeys {
  public:
    void Clear() {
        m_slots.clear();
        m_used = 0;
    }

    // The row with the key, or -1.
    template <class KeyOf>
    int Find(std::string_view key, KeyOf&& keyOf) const {
        return m_slots.empty() ? -1 : m_slots[SlotOf(key, keyOf)];
    }

    // A row must have the key.
    template <class KeyOf>
    void Remove(std::string_view key, KeyOf&& keyOf) {
        m_slots[SlotOf(key, keyOf)] = Gone;
    }

    // False, with nothing changed, when another row has the key of this one.
    template <class KeyOf>
    bool Insert(int row, KeyOf&& keyOf) {
        if (m_slots.size() < 2 * (m_used + 1)) Grow(keyOf);
        int& slot = m_slots[SlotOf(keyOf(row), keyOf)];
        if (slot >= 0) return false;
        slot = row;
        ++m_used;
        return true;
    }

  private:
    static constexpr int Free = -1;
    static constexpr int Gone = -2;  // what lies behind it is still to be found

    // Where the key is, or the free place where it would be; the table is never full.
    template <class KeyOf>
    std::size_t SlotOf(std::string_view key, KeyOf&& keyOf) const {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = std::hash<std::string_view>()(key) & mask;
        while (m_slots[slot] != Free && (m_slots[slot] == Gone || keyOf(m_slots[slot]) != key)) {
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    template <class KeyOf>
    void Grow(KeyOf&& keyOf) {
        std::vector<int> rows;
        std::copy_if(m_slots.begin(), m_slots.end(), std::back_inserter(rows),
                     [](int row) { return row >= 0; });
        m_used = rows.size();
        m_slots.assign(std::bit_ceil(4 * (m_used + 4)), Free);
        for (const int row : rows) m_slots[SlotOf(keyOf(row), keyOf)] = row;
    }

    std::vector<int> m_slots;  // a power of two of them
    std::size_t m_used = 0;    // slots that aren't free
};

}  // namespace tavel
