// The program's own start with the library in the db.txt beside this program, until the main
// window is painted; then every list is shown once.

#include "Ratio.h"
#include "core/Main.h"
#include "library/Records.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"

#include <time.h>
#include <unistd.h>

#include <QTreeView>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

using namespace tavel;

// Milliseconds since the kernel made this process: loading the libraries counts too.
double ProcessAgeMilliseconds() {
    std::ifstream file("/proc/self/stat");
    std::string text{std::istreambuf_iterator<char>(file), {}};
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string field;
    for (int number = 3; number <= 22; ++number) fields >> field;  // 22: start time in ticks
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double started = std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
    return (static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9 - started) *
           1000;
}

}  // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    WireUpCalls();
    Main();
    frmMain& window = SingleWindow<frmMain>::Get();
    ShowNow(window);
    const double painted = ProcessAgeMilliseconds();

    auto* list = window.findChild<QTreeView*>(QStringLiteral("grdItems"));
    for (const MediaType iType : {mtPhoto, mtVideo, mtMusic}) {
        window.SetupItemList(iType);
        window.FillList(iType);
        list->viewport()->repaint();
    }
    std::printf(
        "Start to main window painted, %s: %.0f ms (to 10 ms); peak memory with all lists shown "
        "once: %.0f MB.\n",
        argc > 1 ? argv[1] : "this library", painted, bench::PeakMegabytes());
    std::fflush(stdout);
    std::_Exit(0);
}
