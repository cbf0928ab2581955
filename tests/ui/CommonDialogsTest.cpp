#include "support/Support.h"
#include "ui/support/LookAtEach.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QLineEdit>

namespace tavel::test {

TEST(CommonDialogs, a_screen_reader_has_a_name_for_all_that_takes_a_value) {
    int count = 0;
    LookAtEach(ColorsAndFonts(), [&count](QWidget& box) { count += ExpectNamed(box); });
    EXPECT_GT(count, 10);
}

TEST(CommonDialogs, a_part_that_a_dialog_does_not_have_is_passed_over) {
    const NamelessParts host;
    const RealPrompts real;
    Asks asks = ColorsAndFonts();
    asks.push_back([] { Service<Prompter>::Get().PickFiles({}); });
    int seen = 0;
    LookAtEach(asks, [&seen](QWidget& box) {
        ++seen;
        EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("treeView")), nullptr);
    });
    EXPECT_EQ(seen, 3);
}

TEST(CommonDialogs, a_file_is_picked_and_its_type_told_where_no_part_has_a_name) {
    const NamelessParts host;
    const RealPrompts real;
    const TempFolder folder;
    folder.Write("a.zip", "");
    FileRequest request;
    request.startFolder = ToQString(folder.HostPath());
    request.descriptions = QStringList{QStringLiteral("Photos"), QStringLiteral("Zip")};
    request.patterns = QStringList{QStringLiteral("*.jpg"), QStringLiteral("*.zip")};
    request.filterIndex = 1;
    ConfirmNext(
        [](QWidget& box) { box.findChild<QLineEdit*>()->setText(QStringLiteral("a.zip")); });
    const FileAnswer answer = Service<Prompter>::Get().PickFiles(request);
    EXPECT_EQ(answer.files, QStringList(ToQString(folder.HostPath("a.zip"))));
    EXPECT_EQ(answer.filterIndex, 1);
}

TEST(CommonDialogs, each_has_the_text_of_the_program) {
    LookAtEach(ColorsAndFonts(), ExpectOwnText);
}

}  // namespace tavel::test
