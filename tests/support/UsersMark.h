#pragma once

#include "platform/NumberStyle.h"

#include <string>
#include <utility>

namespace tavel::test {

// While it lives, the user writes numbers with this decimal mark.
class UsersMark : public NumberStyle {
  public:
    explicit UsersMark(std::string mark)
        : m_mark(std::move(mark)), m_before(Service<NumberStyle>::Get()) {
        Service<NumberStyle>::Use(this);
    }
    ~UsersMark() override { Service<NumberStyle>::Use(&m_before); }
    UsersMark(const UsersMark&) = delete;
    UsersMark& operator=(const UsersMark&) = delete;

    std::string_view DecimalMark() override { return m_mark; }

  private:
    std::string m_mark;
    NumberStyle& m_before;
};

}  // namespace tavel::test
