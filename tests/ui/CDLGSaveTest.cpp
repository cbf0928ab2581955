#include "core/PublicStuff.h"
#include "support/Support.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

namespace tavel::test {

namespace {

const std::string nul(1, '\0');

// One call, each of whose arguments a test may change.
struct Call {
    std::string Filename;
    std::string FileTitle;
    bool OverWritePrompt = true;
    std::string Filter = "Zip Files (*.zip)|*.zip|Anything|*.*";
    Long FilterIndex = 2;
    std::string InitDir;
    std::string DefaultExt;
    QWidget* Owner = nullptr;
    Long flags = 0;
    CDLG dialog;

    bool Run() {
        return dialog.VBGetSaveFileName(Filename, FileTitle, OverWritePrompt, Filter, FilterIndex,
                                        InitDir, "Save the list", DefaultExt, Owner, flags);
    }
};

const QString title = QStringLiteral("Save the list");

void ExpectNothingChosen(Call& call) {
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Filename, "");
    EXPECT_EQ(call.FileTitle, "");
    EXPECT_EQ(call.Filter, "");
    EXPECT_EQ(call.FilterIndex, -1);
    EXPECT_EQ(call.flags, 0);
}

std::string Padded(const std::string& text) { return text + std::string(460 - text.size(), '\0'); }

// The real box over a folder of the host.
class SaveDialogs : public ::testing::Test {
  protected:
    SaveDialogs() {
        folder.Write("taken.txt", "old");
        call.InitDir = folder.DrivePath("");
        call.Owner = &owner;
    }

    static QLineEdit& NameBox(QWidget& box) { return Find<QLineEdit>(box, "fileNameEdit"); }

    static void Type(QWidget& box, const std::string& name) {
        NameBox(box).selectAll();
        QTest::keyClicks(&NameBox(box), ToQString(name));
        QTest::keyClick(&NameBox(box), Qt::Key_Return);
    }

    // For words that would pick out a file or a folder of the list while they are typed.
    static void Confirm(QWidget& box, const char* words) {
        NameBox(box).setText(QString::fromLatin1(words));
        QTest::keyClick(&NameBox(box), Qt::Key_Return);
    }

    TempFolder folder;
    QWidget owner;
    Call call;
    const RealPrompts real;
};

const char* const replaceQuestion = "taken.txt already exists.\nDo you want to replace it?";

}  // namespace

TEST_F(SaveDialogs, a_typed_name_need_not_be_there) {
    call.Filename = "list.txt";
    WhenModal([this](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &owner);
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(FromQString(NameBox(box).text()), "list.txt");
        EXPECT_EQ(box.findChild<QCheckBox*>(QStringLiteral("chkReadOnly")), nullptr);
        Type(box, "new.txt");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded(folder.DrivePath("new.txt")));
    EXPECT_EQ(call.FileTitle, "new.txt");
    EXPECT_EQ(call.Filter, "Anything" + nul + "*.*");
    EXPECT_EQ(call.FilterIndex, 2);
    EXPECT_EQ(call.flags, 2);
    EXPECT_EQ(call.dialog.APIReturn(), 1);
    EXPECT_FALSE(std::filesystem::exists(folder.HostPath("new.txt"))) << "saving is the caller's";
}

TEST_F(SaveDialogs, Escape_cancels) {
    WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    ExpectNothingChosen(call);
    EXPECT_EQ(call.dialog.APIReturn(), 0);
}

TEST_F(SaveDialogs, a_name_that_is_taken_is_asked_about_in_any_case_of_its_letters) {
    for (const char* name : {"taken.txt", "TAKEN.TXT"}) {
        Call asked = call;
        std::string question = replaceQuestion;
        question.replace(0, 9, name);
        WhenModal([&](QWidget& box) {
            AnswerNext(question, Qt::Key_Return);  // No is the default
            Type(box, name);
            EXPECT_TRUE(box.isVisible());
            AnswerNext(question, Qt::Key_Escape);
            Type(box, name);
            EXPECT_TRUE(box.isVisible());
            AnswerNext(question, Qt::Key_Y);
            Type(box, name);
        });
        EXPECT_TRUE(asked.Run());
        EXPECT_STRCASEEQ(asked.FileTitle.c_str(), name);
    }
    EXPECT_EQ(folder.Read("taken.txt"), "old");
}

TEST_F(SaveDialogs, quotation_marks_neither_name_a_second_file_nor_drop_part_of_a_name) {
    for (const char* names : {R"("new.txt" "newer.txt")", R"(new"er.txt)", R"("new" er.txt)",
                              R"(new "er.txt")", R"("new.txt)"}) {
        Call refused = call;
        WhenModal([names](QWidget& box) {
            AnswerNext("One file is to be named here.");
            Confirm(box, names);
            EXPECT_TRUE(box.isVisible()) << names;
            if (box.isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
        });
        ExpectNothingChosen(refused);
    }
    WhenModal([](QWidget& box) { Confirm(box, R"("new one.txt")"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded(folder.DrivePath("new one.txt")));
}

TEST_F(SaveDialogs, without_the_prompt_nothing_is_asked) {
    call.OverWritePrompt = false;
    WhenModal([](QWidget& box) { Type(box, "taken.txt"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.FileTitle, "taken.txt");
    EXPECT_EQ(call.flags, 0);

    Call byFlag;
    byFlag.InitDir = call.InitDir;
    byFlag.OverWritePrompt = false;
    byFlag.flags = 2;
    WhenModal([](QWidget& box) {
        AnswerNext(replaceQuestion, Qt::Key_Y);
        Type(box, "taken.txt");
    });
    EXPECT_TRUE(byFlag.Run());
}

TEST_F(SaveDialogs, a_name_without_an_extension_gets_the_default_one) {
    struct Case {
        const char* ext;
        const char* typed;
        const char* title;
        Long flags;
    };
    for (const Case& one :
         {Case{"m3u", "list", "list.m3u", 2}, Case{"m3u", "list.M3U", "list.M3U", 2},
          Case{"m3u", "list.txt", "list.txt", 0x402}, Case{".m3u", "list", "list.m3u", 2},
          Case{".m3u", "list.M3U", "list.M3U", 2}, Case{".m3u", "list.txt", "list.txt", 0x402},
          Case{".", "list", "list", 2}}) {
        Call named = call;
        named.DefaultExt = one.ext;
        WhenModal([&one](QWidget& box) { Type(box, one.typed); });
        EXPECT_TRUE(named.Run());
        EXPECT_EQ(named.FileTitle, one.title);
        EXPECT_EQ(named.flags, one.flags);
    }
}

TEST_F(SaveDialogs, the_box_stays_for_what_cannot_be_saved) {
    folder.Write("Trip/a.jpg", "");
    const std::string tooLong(240, 'x');
    const auto nothingAs = [this](const char* name) {
        return "Nothing can be saved as " + folder.HostPath(name) + ".";
    };
    const std::pair<std::string, std::string> refusals[] = {
        {"no folder/a.txt", nothingAs("no folder/a.txt")},
        {"a*b.txt", nothingAs("a*b.txt")},
        {"a|b.txt", nothingAs("a|b.txt")},
        {tooLong, "A path of more than 254 characters can't be taken."}};
    for (const auto& [name, reason] : refusals) {
        Call refused = call;
        WhenModal([&, name = name, reason = reason](QWidget& box) {
            AnswerNext(reason);
            Type(box, name);
            EXPECT_TRUE(box.isVisible()) << name;
            if (box.isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
        });
        ExpectNothingChosen(refused);
    }
    WhenModal([](QWidget& box) { Confirm(box, "Trip/b.txt"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded(folder.DrivePath("Trip\\b.txt")));
}

TEST_F(SaveDialogs, a_new_name_is_taken_whatever_the_flag_for_files_that_exist_says) {
    call.flags = 0x1000;
    WhenModal([](QWidget& box) { Type(box, "new.txt"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.FileTitle, "new.txt");
}

TEST_F(SaveDialogs, several_names_cannot_be_given) {
    call.flags = 0x200;
    WhenModal([](QWidget& box) { Type(box, "a.txt"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.FileTitle, "a.txt");
}

TEST_F(SaveDialogs, the_box_outlives_its_owner) {
    auto* unloaded = new QWidget;
    call.Owner = unloaded;
    WhenModal([unloaded](QWidget&) { delete unloaded; });
    ExpectNothingChosen(call);
}

TEST_F(SaveDialogs, an_owner_may_go_while_the_box_asks) {
    auto* unloaded = new QWidget;
    call.Owner = unloaded;
    WhenModal([unloaded](QWidget& box) {
        NameBox(box).setText(QStringLiteral("taken.txt"));
        WhenModalOver(
            box, [&box] { static_cast<QDialog&>(box).accept(); },
            [unloaded](QWidget&) { delete unloaded; });
    });
    ExpectNothingChosen(call);
}

TEST(VBGetSaveFileName, asks_with_all_that_it_was_given) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    call.Filter = "Photos: small|*.jpg|Music|*.mp3";
    call.DefaultExt = "jpg";
    call.flags = 0x280000 | 0x20 | 0x40;
    ExpectNothingChosen(call);
    const FileRequest& asked = prompts.LastFileRequest();
    EXPECT_TRUE(asked.saving);
    EXPECT_EQ(asked.flags, 0x280002) << "neither hook nor template";
    EXPECT_EQ(asked.filterIndex, 1);
    EXPECT_EQ(FromQString(asked.defaultSuffix), "jpg");
    EXPECT_EQ(asked.descriptions, QStringList({QStringLiteral("Photos"), QStringLiteral("*.jpg"),
                                               QStringLiteral("*.mp3")}))
        << "a colon parts the filter as a bar does";
}

TEST(VBGetSaveFileName, a_failure_acts_as_a_cancel) {
    PromptQueue prompts;
    FileAnswer failed;
    failed.error = 0x3002;
    prompts.ExpectFileAnswer(title, failed);
    Call call;
    ExpectNothingChosen(call);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
    failed.result = 2;
    prompts.ExpectFileAnswer(title, failed);
    Call other;
    ExpectNothingChosen(other);
    EXPECT_EQ(other.dialog.APIReturn(), 2);
    EXPECT_EQ(other.dialog.ExtendedError(), 0x3002);
}

TEST(VBGetSaveFileName, a_path_beyond_460_characters_acts_as_a_cancel_and_in_an_argument_fails) {
    PromptQueue prompts;
    for (const int length : {457, 458}) {
        prompts.ExpectFiles(title, {QDir::rootPath() + QString(length - 1, QLatin1Char('x'))});
        Call call;
        if (length == 457)
            EXPECT_TRUE(call.Run());
        else
            ExpectNothingChosen(call);
    }
    Call longName;
    longName.Filename = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { longName.Run(); }), 5);
    Call longTitle;
    longTitle.FileTitle = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { longTitle.Run(); }), 5);
}

TEST(VBGetFileTitle, is_the_name_without_its_folder) {
    for (const char* path : {"c:\\Media\\a b.jpg", "c:a b.jpg", "Media/a b.jpg", "a b.jpg"})
        EXPECT_EQ(CDLG::VBGetFileTitle(path), "a b.jpg") << path;
    EXPECT_EQ(CDLG::VBGetFileTitle("c:\\Trip [1].jpg"), "Trip [1].jpg");
    EXPECT_EQ(CDLG::VBGetFileTitle("c:\\a.jpg" + nul + "b.jpg" + nul), "a.jpg");
}

TEST(VBGetFileTitle, is_empty_for_what_cannot_be_a_file) {
    for (const char* path : {"", "c:", "c:\\", "c:\\Media\\", "Media/", "c:\\*.jpg", "a?.jpg"})
        EXPECT_EQ(CDLG::VBGetFileTitle(path), "") << path;
    EXPECT_EQ(CDLG::VBGetFileTitle(nul), "");
}

TEST(VBGetFileTitle, has_room_for_459_characters_and_a_NUL) {
    std::string letters;
    for (int i = 0; i < 459; ++i) letters += "\xD0\x96";
    EXPECT_EQ(CDLG::VBGetFileTitle("c:\\" + letters), letters);
    EXPECT_EQ(CDLG::VBGetFileTitle("c:\\" + letters + "x"), "");
}

}  // namespace tavel::test
