#pragma once

#include "ui/support/MainWindow.h"

#include <string>

namespace tavel::test {

// frmMain with a marked stick in the drive e:, the folder "stick" of the fixture.
class DeviceWindowTest : public MainWindowTest {
  protected:
    DeviceWindowTest();

    void ClickPSP(const std::string& sKey) { ClickNode(trvPSPCat(), sKey); }

    // Picks the entry that deletes from the device, and answers its question.
    void AnswerDelete(Long row, MsgBoxAnswer answer);
    void DeleteRow(Long row) { AnswerDelete(row, MsgBoxAnswer::Yes); }

    std::string Text(const char* label);

    // Names of what lies in a folder of the stick, in order, each with a blank.
    std::string OnStick(const std::string& sFolder) const;
};

}  // namespace tavel::test
