#pragma once

#include "platform/windows/WindowsApi.h"

#include <string>

namespace tavel {

// What tells one file or folder from another, by whatever path the two are reached; links are
// followed. What can't be looked at is nothing else's equal.
class FileIdentity {
  public:
    explicit FileIdentity(const std::wstring& callPath);

    bool operator==(const FileIdentity& other) const;
    bool IsKnown() const { return m_isKnown; }
    std::string Text() const;  // of one that is known

  private:
    bool m_isKnown = false;
    FILE_ID_INFO m_id{};
};

}  // namespace tavel
