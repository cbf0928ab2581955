#pragma once

#include "platform/BlockStore.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavel {

// Names of profile sections and keys match without regard to ASCII case.
bool SameName(std::string_view a, std::string_view b);

// Equal for names that match. The same name hashes differently from one run of the program to the
// next, so that no file can be made whose names all collide. Allocates nothing.
std::uint32_t HashOfName(std::string_view name);

// Finds names in groups: the keys of one section are a group, the sections of a file are another.
// Each group is a small open-addressing table from hashes to indices; the caller holds the entries.
// Groups lie in memory in the order of their making, so that who goes through a file's sections in
// order goes through memory in order.
class NameTable {
  public:
    static constexpr std::uint32_t None = 0xFFFFFFFF;

  private:
    struct Slot {
        std::uint32_t hash;
        std::uint32_t index;
    };

  public:
    class Group {
        friend class NameTable;
        Slot* m_slots = nullptr;
        std::uint32_t m_size = 0;  // a power of two, at most three quarters full; 0 without entries
        std::uint32_t m_count = 0;
    };

    // The index under the hash for which `matches(index)` holds; None if there is none.
    template <class Matches>
    std::uint32_t Find(const Group& group, std::uint32_t hash, Matches&& matches) const {
        if (group.m_size == 0) return None;
        const std::uint32_t mask = group.m_size - 1;
        for (std::uint32_t at = hash & mask; group.m_slots[at].index != None;
             at = (at + 1) & mask) {
            const Slot& slot = group.m_slots[at];
            if (slot.hash == hash && matches(slot.index)) return slot.index;
        }
        return None;
    }

    void Insert(Group& group, std::uint32_t hash, std::uint32_t index);

  private:
    void Grow(Group& group);

    BlockStore<Slot> m_slots;
};

}  // namespace tavel
