#include "library/Collections.h"
#include "ui/main/frmLog.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/Strings.h"

#include <QAccessible>
#include <QToolButton>

namespace tavel::test {

namespace {

using ScreenReaderTest = MainWindowTest;

QAccessibleInterface& Read(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

std::string NameOf(const QAccessibleInterface& thing) {
    return FromQString(thing.text(QAccessible::Name));
}

}  // namespace

TEST_F(ScreenReaderTest, the_view_button_is_called_what_it_reads) {
    Open();
    auto& button = Find<QToolButton>(Main(), "view");
    EXPECT_EQ(NameOf(Read(button)), "Transfer View");
    button.menu()->findChild<QAction*>(QStringLiteral("auto"))->trigger();
    EXPECT_EQ(NameOf(Read(button)), "AutoSync View");
}

TEST_F(ScreenReaderTest, the_log_is_a_window_with_a_list) {
    frmLog& window = SingleWindow<frmLog>::Get();
    window.AddItem("a line");
    window.show();
    EXPECT_EQ(Read(window).role(), QAccessible::Window);
    EXPECT_EQ(NameOf(Read(window)), "Log");
    QAccessibleInterface& lines = Read(Find(window, "lstLog"));
    EXPECT_EQ(NameOf(lines), "Log");
    EXPECT_EQ(lines.parent()->object(), &window);
    EXPECT_EQ(NameOf(*lines.tableInterface()->cellAt(0, 0)), "a line");
}

TEST_F(ScreenReaderTest, the_icons_of_the_transfer_list_say_their_kind) {
    AddPhoto("ph_a", "Beach");
    AddMusic("mu_a", "Song", "Singer");
    AddVideo("vd_a", "Film");
    AddMagazine("ma_a", {});
    AddAlbum("pa_a", {});
    AddPlaylist("pl_", {});
    AddSeries("vs_a", {});
    frmMain& window = Open();
    const struct {
        const char* id;
        const char* kind;
    } entries[] = {{"ph_a", "Photo"},  {"ma_a", "Magazine"},     {"pa_a", "Photo Album"},
                   {"vd_a", "Video"},  {"vs_a", "Video Series"}, {"mu_a", "Music"},
                   {"pl_", "Playlist"}};
    for (const auto& entry : entries) window.AddToTransferList(entry.id);
    QAccessibleTableInterface& table = *Read(grdSync()).tableInterface();
    ASSERT_TRUE(QTest::qWaitFor([&] { return table.cellAt(6, 1) != nullptr; }));
    int row = 0;
    for (const auto& entry : entries) {
        EXPECT_EQ(NameOf(*table.cellAt(row, 0)), entry.kind);
        EXPECT_EQ(NameOf(*table.cellAt(row, 1)), grdSync().Cell(row + 1, 1));
        ++row;
    }
    EXPECT_EQ(grdSync().Cell(1, 0), "") << "the cell itself has no text";
}

}  // namespace tavel::test
