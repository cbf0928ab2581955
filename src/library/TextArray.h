#pragma once

#include "platform/Numbers.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavel {

// An array of text with the lower bound 0, unallocated until its first resize. An index outside
// the bounds fails with 9, as does a resize to an upper bound below 0. A group may have thousands
// of members: none of these costs more than a few steps, wherever in the array it works.
class TextArray {
  public:
    TextArray();
    ~TextArray();
    TextArray(const TextArray& other);
    TextArray(TextArray&& other) noexcept;
    TextArray& operator=(TextArray other) noexcept;

    const std::string& Get(Integer i) const;
    void Set(Integer i, std::string s);
    void Redim(Integer iUpper, bool bKeep);

    // Takes an entry out: those behind it move one place down, and the upper bound falls by 1.
    void TakeOut(Integer i);

    // The last of the first iCount entries that equals s; fails with 9 when there are fewer.
    std::optional<Integer> LastOf(std::string_view s, Integer iCount) const;

  private:
    class Entries;

    std::size_t Within(Integer i) const;

    std::unique_ptr<Entries> m_entries;  // null while unallocated
};

}  // namespace tavel
