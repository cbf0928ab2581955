#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace tavel {

// Hands out many small runs of elements from few blocks. They stay where they are for as long as
// the store lives.
template <class Element>
class BlockStore {
  public:
    // `count` elements to fill, of no particular value.
    Element* Take(std::size_t count) {
        if (count > m_left) {
            m_left = std::max(blockSize, count);
            m_blocks.emplace_back(new Element[m_left]);
            m_next = m_blocks.back().get();
        }
        m_left -= count;
        return std::exchange(m_next, m_next + count);
    }

  private:
    static constexpr std::size_t blockSize = 64 * 1024 / sizeof(Element);

    std::vector<std::unique_ptr<Element[]>> m_blocks;
    Element* m_next = nullptr;
    std::size_t m_left = 0;
};

}  // namespace tavel
