#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace tavel::test {

// A variable of the environment that is another one, or none, while this lives.
class HostVariable {
  public:
    HostVariable(std::string name, const std::optional<std::string>& value)
        : m_name(std::move(name)) {
        if (const char* const before = std::getenv(m_name.c_str())) m_before = before;
        Set(value);
    }
    ~HostVariable() { Set(m_before); }
    HostVariable(const HostVariable&) = delete;
    HostVariable& operator=(const HostVariable&) = delete;

    void Set(const std::optional<std::string>& value) const {
        if (value)
            setenv(m_name.c_str(), value->c_str(), 1);
        else
            unsetenv(m_name.c_str());
    }

  private:
    std::string m_name;
    std::optional<std::string> m_before;
};

}  // namespace tavel::test
