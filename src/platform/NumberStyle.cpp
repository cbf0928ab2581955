#include "platform/NumberStyle.h"

#include "platform/HostLocale.h"

#include <string>

namespace tavel {

namespace {

class HostNumberStyle : public NumberStyle {
  public:
    HostNumberStyle() {
        if (m_mark.empty()) m_mark = ".";
    }

    std::string_view DecimalMark() override { return m_mark; }

  private:
    std::string m_mark = HostDecimalMark();
};

}  // namespace

template <>
NumberStyle* OwnService<NumberStyle>() {
    static HostNumberStyle host;
    return &host;
}

}  // namespace tavel
