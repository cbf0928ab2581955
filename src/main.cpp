#include "core/Main.h"

#include "ui/main/MainLayout.h"
#include "ui/main/UpCalls.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/Twips.h"

#include <QIcon>
#include <algorithm>

namespace {

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/artwork/icons/tavel-%1.png").arg(size));
    }
    return icon;
}

}  // namespace

int main(int argc, char** argv) {
    // The program takes no command line, and Qt would take options of its own from it.
    int nameAlone = std::min(argc, 1);
    tavel::Application application(nameAlone, argv);
    tavel::Application::setWindowIcon(ProgramIcon());
    tavel::SetScale(
        tavel::DesktopScale({tavel::MainLayout::ClientWidth, tavel::MainLayout::ClientHeight}));
    const tavel::EndOfSession endOfSession;
    tavel::WireUpCalls();
    application.Guard(tavel::Main);
    return tavel::Application::exec();
}
