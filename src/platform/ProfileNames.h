#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavel {

// Names of profile sections and keys match without regard to ASCII case.
bool SameName(std::string_view a, std::string_view b);

// Equal for names that match. `start` sets apart equal names in different places. The same name
// hashes differently from one run of the program to the next, so that no file can be made whose
// names all collide. Allocates nothing.
std::uint64_t HashOfName(std::string_view name, std::uint64_t start);

// A flat open-addressing table from hashes to indices; the caller holds the entries themselves.
class IndexTable {
  public:
    static constexpr std::uint32_t None = 0xFFFFFFFF;

    // Room for `count` indices without growing.
    void Reserve(std::size_t count);

    // The first index under the hash for which `matches(index)` holds; None if there is none.
    template <class Matches>
    std::uint32_t Find(std::uint64_t hash, Matches&& matches) const {
        if (m_slots.empty()) return None;
        const auto tag = static_cast<std::uint32_t>(hash >> 32);
        for (std::size_t at = hash & m_mask; m_slots[at].index != None; at = (at + 1) & m_mask) {
            if (m_slots[at].tag == tag && matches(m_slots[at].index)) return m_slots[at].index;
        }
        return None;
    }

    void Insert(std::uint64_t hash, std::uint32_t index);

  private:
    // The lower half of a hash gives the place, the upper half tells neighbours apart.
    struct Slot {
        std::uint32_t tag = 0;
        std::uint32_t index = None;
        std::uint32_t place = 0;
    };

    void Resize(std::size_t slots);
    void Put(const Slot& slot);

    std::vector<Slot> m_slots;  // a power of two, at most three quarters full
    std::size_t m_mask = 0;
    std::size_t m_count = 0;
};

}  // namespace tavel
