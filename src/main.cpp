#include "core/Main.h"

#include "ui/main/UpCalls.h"
#include "ui/toolkit/Application.h"

#include <QIcon>

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
    tavel::Application application(argc, argv);
    tavel::Application::setWindowIcon(ProgramIcon());
    tavel::WireUpCalls();
    application.Guard(tavel::Main);
    return tavel::Application::exec();
}
