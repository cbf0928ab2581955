#include "core/Main.h"

#include "core/Log.h"
#include "platform/ProgramFolder.h"
#include "ui/main/MainLayout.h"
#include "ui/main/UpCalls.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/Twips.h"

#include <QIcon>
#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/artwork/icons/tavel-%1.png").arg(size));
    }
    return icon;
}

constexpr const char* nameAndVersion = "Tavel " TAVEL_VERSION;

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && argv[1] == std::string_view("--version")) return std::puts(nameAndVersion) < 0;
    // The program takes no other command line, and Qt would take options of its own from it.
    int nameAlone = std::min(argc, 1);
    tavel::Application application(nameAlone, argv);
    tavel::Application::setWindowIcon(ProgramIcon());
    tavel::SetScale(
        tavel::DesktopScale({tavel::MainLayout::ClientWidth, tavel::MainLayout::ClientHeight}));
    const tavel::EndOfSession endOfSession;
    tavel::WireUpCalls();
    application.Guard([] {
        tavel::FillProgramFolder();
        tavel::AddLog("Version", nameAndVersion);
        tavel::Main();
    });
    return tavel::Application::exec();
}
