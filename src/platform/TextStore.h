#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tavel {

// Keeps copies of many small texts in few blocks, for as long as it lives.
class TextStore {
  public:
    std::string_view Keep(std::string_view text) {
        if (text.size() > m_left) {
            m_left = std::max(blockSize, text.size());
            m_blocks.push_back(std::make_unique<char[]>(m_left));
            m_next = m_blocks.back().get();
        }
        char* const place = m_next;
        std::copy(text.begin(), text.end(), place);
        m_next += text.size();
        m_left -= text.size();
        return {place, text.size()};
    }

  private:
    static constexpr std::size_t blockSize = 64 * 1024;

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_left = 0;
};

}  // namespace tavel
