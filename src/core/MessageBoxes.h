#pragma once

#include <string>

namespace tavel {

enum class MsgBoxButtons { OK, OKCancel, YesNo, YesNoDefaultNo };
enum class MsgBoxAnswer { OK, Cancel, Yes, No };

// The program's name: the title of a message box that is given none.
inline constexpr const char* ProgramTitle = "Tavel";

// Blocking message boxes. One with Yes and No that is closed otherwise answers No, an OKCancel box
// Cancel.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons,
                                const std::string& title) = 0;
};

}  // namespace tavel
