#pragma once

#include "platform/Failure.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tavel {

// The texts of a row's cells, in one piece of memory: a list has tens of thousands of rows. A row
// has at most MaxCount cells; one more fails with 35600. A cell that was never set is empty.
class CellTexts {
  public:
    static constexpr std::size_t MaxCount = 6;

    CellTexts() = default;
    CellTexts(std::initializer_list<std::string_view> texts) {
        std::size_t size = 0;
        for (const std::string_view text : texts) size += text.size();
        m_text.reserve(size);
        for (const std::string_view text : texts) Add(text);
    }

    std::size_t Count() const { return m_count; }

    // Good until the next change.
    std::string_view Get(std::size_t cell) const {
        if (cell >= m_count) return {};
        return std::string_view(m_text).substr(StartOf(cell), m_ends[cell] - StartOf(cell));
    }

    void Add(std::string_view text) {
        if (m_count == MaxCount) Fail(failure::ListIndexOutOfBounds);
        m_text += text;
        m_ends[m_count++] = static_cast<std::uint32_t>(m_text.size());
    }

    void Set(std::size_t cell, std::string_view text) {
        CellTexts changed;
        for (std::size_t i = 0; i < m_count || i <= cell; ++i) {
            changed.Add(i == cell ? text : Get(i));
        }
        *this = std::move(changed);
    }

  private:
    std::size_t StartOf(std::size_t cell) const { return cell == 0 ? 0 : m_ends[cell - 1]; }

    std::string m_text;
    std::array<std::uint32_t, MaxCount> m_ends{};
    std::size_t m_count = 0;
};

}  // namespace tavel
