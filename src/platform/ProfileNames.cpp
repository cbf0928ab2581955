#include "platform/ProfileNames.h"

#include <cstring>
#include <random>
#include <utility>

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

std::uint64_t Mix(std::uint64_t a, std::uint64_t b) {
    const Product product = Product{a} * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t Load(const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    if (count != 0) std::memcpy(&word, bytes, count);
    return word | caseBits;
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

std::uint64_t HashOfName(std::string_view name, std::uint64_t start) {
    static const std::uint64_t first = RandomNumber();
    static const std::uint64_t second = RandomNumber() | 1;
    std::uint64_t hash = Mix(first ^ start, second ^ name.size());
    const char* at = name.data();
    std::size_t left = name.size();
    for (; left > 8; left -= 8, at += 8) hash = Mix(hash ^ Load(at, 8) ^ first, second ^ hash);
    return Mix(hash ^ Load(at, left), second);
}

void IndexTable::Reserve(std::size_t count) {
    std::size_t slots = 16;
    while (slots / 4 * 3 < count) slots *= 2;
    if (slots > m_slots.size()) Resize(slots);
}

void IndexTable::Insert(std::uint64_t hash, std::uint32_t index) {
    Reserve(++m_count);
    Put({static_cast<std::uint32_t>(hash >> 32), index, static_cast<std::uint32_t>(hash)});
}

void IndexTable::Resize(std::size_t slots) {
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(slots));
    m_mask = slots - 1;
    for (const Slot& slot : old) {
        if (slot.index != None) Put(slot);
    }
}

void IndexTable::Put(const Slot& slot) {
    std::size_t at = slot.place & m_mask;
    while (m_slots[at].index != None) at = (at + 1) & m_mask;
    m_slots[at] = slot;
}

}  // namespace tavel
