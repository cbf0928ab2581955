#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "device/Browser.h"
#include "device/Discovery.h"
#include "device/Status.h"
#include "device/Transfer.h"
#include "library/LibraryFile.h"
#include "support/DeviceRecorders.h"

#include <iostream>
#include <string>
#include <vector>

// The program without its windows, for a machine that has none: each start is a start of the
// program, and a line of its output what a person would see.
//
//   driver send ID...          "Send To PSP" with these rows in the transfer list
//   driver setup DRIVE NAME    OK in "Setup New PSP"
//   driver move FROM TO        a file moved by its path

namespace tavel::test {

namespace {

// The line is out before the engine goes on.
void Say(const std::string& line) { std::cout << line << std::endl; }

class CopyWindowInLines : public CopyWindowRecorder {
  public:
    using CopyWindowRecorder::CopyWindowRecorder;
    void SetFile(const std::string& sText) override { Say("Copying: " + sText); }
    void ShowFinish() override { Say("Finished!"); }
};

// frmMain and what is open beside it, as far as the stick is concerned.
struct Windows {
    Windows() {
        frmCopy.curr.isRecording = false;
        frmMain.onRefreshPSPCats = [] {
            PSPMusicFolders();
            PSPPhotoFolders();
        };
        frmMain.onRefreshPSPStatus = [this] { UpdateStatusPanel(status); };
    }

    Calls calls;
    LogWindowRecorder frmLog{calls};
    CopyWindowInLines frmCopy{calls};
    DevicePanelsRecorder frmMain{calls};
    StatusPanel status;
};

bool Run(const std::string& command, const std::vector<std::string>& words) {
    const Windows windows;
    sDBFile = GetAppPath() + "db.txt";
    LoadDB();
    FirstLookForPSP();
    Say(bPSPConnected ? sPSPName + " Connected" : "No PSP Connected");
    if (command == "setup") return SetupNewPSP(words.at(0), words.at(1));
    if (command == "move") {
        oFSO().MoveFile(words.at(0), words.at(1));
    } else {
        TransferToPSP(words);
    }
    return true;
}

}  // namespace

}  // namespace tavel::test

int main(int argc, char** argv) {
    using namespace tavel;
    const std::vector<std::string> words(argv + 1, argv + argc);
    try {
        return test::Run(words.at(0), {words.begin() + 1, words.end()}) ? 0 : 1;
    } catch (const Failure& failure) {
        test::Say("Run-time error '" + std::to_string(failure.Number()) +
                  "': " + failure.Description());
        return 1;
    }
}
