#include "platform/ProfileNames.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace tavel {

namespace {

__extension__ using Product = unsigned __int128;

// Sets the case bit of every byte. Characters that are no letters may meet there, which a hash can
// bear.
constexpr std::uint64_t caseBits = 0x2020202020202020;

std::uint64_t RandomNumber() {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}

struct Secret {
    std::uint64_t first = RandomNumber();
    std::uint64_t second = RandomNumber() | 1;
};

std::uint64_t Mix(std::uint64_t a, std::uint64_t b) {
    const Product product = Product{a} * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

template <class Word>
std::uint64_t Load(const char* bytes) {
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

// Up to eight bytes as a number; those of four and more by two loads that overlap.
std::uint64_t LoadUpTo8(const char* bytes, std::size_t count) {
    if (count >= 4) {
        return Load<std::uint32_t>(bytes) << 32 | Load<std::uint32_t>(bytes + count - 4);
    }
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < count; ++i) word = word << 8 | static_cast<unsigned char>(bytes[i]);
    return word;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && Lower(a[i]) != Lower(b[i])) return false;
    }
    return true;
}

std::uint32_t HashOfName(std::string_view name) {
    static const Secret secret;
    std::uint64_t hash = secret.first ^ name.size();
    const char* at = name.data();
    std::size_t left = name.size();
    for (; left > 8; left -= 8, at += 8) {
        hash = Mix(hash ^ (Load<std::uint64_t>(at) | caseBits), secret.second ^ hash);
    }
    return static_cast<std::uint32_t>(
        Mix(hash ^ (LoadUpTo8(at, left) | caseBits), secret.second ^ hash));
}

void NameTable::Insert(Group& group, std::uint32_t hash, std::uint32_t index) {
    if (group.m_count + 1 > group.m_size / 4 * 3) Grow(group);
    ++group.m_count;
    const std::uint32_t mask = group.m_size - 1;
    std::uint32_t at = hash & mask;
    while (group.m_slots[at].index != None) at = (at + 1) & mask;
    group.m_slots[at] = {hash, index};
}

// The place that a group leaves stays unused: growing by doubling, that is less than what it has.
void NameTable::Grow(Group& group) {
    constexpr std::uint32_t least = 16;
    const Group old = group;
    group.m_size = old.m_size == 0 ? least : old.m_size * 2;
    group.m_slots = m_slots.Take(group.m_size);
    std::fill_n(group.m_slots, group.m_size, Slot{0, None});
    group.m_count = 0;
    for (std::uint32_t i = 0; i < old.m_size; ++i) {
        if (old.m_slots[i].index != None) Insert(group, old.m_slots[i].hash, old.m_slots[i].index);
    }
}

}  // namespace tavel
