#include "ui/support/Modal.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QTemporaryDir>
#include <QtPlugin>

Q_IMPORT_PLUGIN(TestPrinters)

namespace {

class CleanBetweenTests : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { tavel::test::CleanUp(); }
    void OnTestEnd(const testing::TestInfo&) override {
        tavel::test::CleanUp();
        tavel::test::ExpectNoneAwaited();
    }
};

}  // namespace

// What Qt and fontconfig keep for the life of the process is no leak of ours, nor is the count of
// guarded pointers to a control through whose handler a failure has passed.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6Widgets\nleak:libQt6DBus\n"
           "leak:ExternalRefCountData::getAndRef\n";
}

// clang 14 guesses where the thread-local data of a library that was loaded later lies, and at the
// end looks for leaks at addresses that are none. What it would find there is Qt's and its
// plugins'.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "intercept_tls_get_addr=0"; }

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Whatever desktop it is run on; "-platform xcb" shows what goes on.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A place for what must not be kept there.
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    // Whatever printers the machine has.
    qputenv("QT_PRINTER_MODULE", "printers");
    const tavel::Application application(argc, argv, tavel::test::EndOfTheProcess);
    // The same letters on every machine.
    QFont font = QApplication::font();
    font.setFamily(QStringLiteral("DejaVu Sans"));
    QApplication::setFont(font);
    // gtest owns its listeners.
    testing::UnitTest::GetInstance()->listeners().Append(new CleanBetweenTests);
    return RUN_ALL_TESTS();
}
