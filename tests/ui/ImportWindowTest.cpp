#include "core/PublicStuff.h"
#include "library/Folders.h"
#include "support/ZipMaker.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Questions.h"
#include "ui/support/UserAtYields.h"

#include <algorithm>
#include <filesystem>

namespace tavel::test {

namespace {

// The import of an archive of three pictures, under the real main window.
class ImportWindowTest : public MainWindowTest {
  protected:
    ImportWindowTest() {
        sPhotoSupport = {"jpg"};
        sDefaultDBPath = temp.DrivePath("library");
        EXPECT_TRUE(MakeDBFolders(sDefaultDBPath));
        temp.Write("Summer.zip", MakeZip({{"1.jpg", "one"}, {"2.jpg", "two"}, {"3.jpg", "three"}}));
    }

    void Import() {
        prompts.ExpectFiles(QStringLiteral("Select file(s) to add"),
                            {QString::fromStdString(temp.HostPath("Summer.zip"))});
        Pick({"mnuFile", "mnuAdd", "mnuAddZipFile"});
    }
    void DeleteFirstPhoto() {
        ClickNode("photoall");
        ClickRow(1);
        prompts.ExpectMsgBox(fromComputer, ButtonsOf(fromComputer), MsgBoxAnswer::Yes, deleteTitle);
        QTest::keyClick(&grdItems(), Qt::Key_Delete);
    }

    bool IsUnzipped(const char* name) const {
        return std::filesystem::exists(temp.HostPath("library/TEMPUNZIP/") + name);
    }
    std::string Imported(const char* name) const {
        return temp.Read("library/Photos/" + std::string(name));
    }

    UserAtYields user;
};

}  // namespace

TEST_F(ImportWindowTest, Exit_while_it_is_unpacked_leaves_its_files_and_a_library_without_them) {
    Open();
    Long atEnd = -1;
    std::string unzipped;
    store.onRelease = [&] {
        atEnd = colPhoto.Count();
        for (const char* name : {"1.jpg", "2.jpg", "3.jpg"})
            if (IsUnzipped(name)) unzipped += std::string(name) + " ";
    };
    user.act = [&](int yield) {
        if (yield == 2) Pick({"mnuFile", "mnuExit"});
    };
    calls.clear();
    Import();
    EXPECT_EQ(atEnd, 0);
    EXPECT_EQ(unzipped, "1.jpg 2.jpg ");
    const auto end = std::find(calls.begin(), calls.end(), "ShowEnd");
    ASSERT_GE(calls.end() - end, 4);
    EXPECT_EQ(Calls(end, end + 4), (Calls{"ShowEnd", "Release", "UnloadAllButMain", "EndProcess"}))
        << "nothing has changed that could be saved";
}

TEST_F(ImportWindowTest, what_the_user_deletes_while_it_is_unpacked_goes_and_the_archive_comes) {
    AddPhotosWithFiles();
    Open();
    const Long before = colPhoto.Count();
    user.act = [&](int yield) {
        if (yield == 2) DeleteFirstPhoto();
    };
    Import();
    EXPECT_EQ(user.yields, 3) << "once a file";
    EXPECT_FALSE(FileIsThere("a"));
    EXPECT_EQ(colPhoto.Count(), before - 1 + 3);
    EXPECT_EQ(Imported("1.jpg") + Imported("2.jpg") + Imported("3.jpg"), "onetwothree");
}

TEST_F(ImportWindowTest, a_stick_that_comes_meanwhile_is_found_and_the_import_goes_on) {
    Open();
    ASSERT_FALSE(bPSPConnected);
    int connectedAt = 0;
    user.act = [&](int yield) {
        if (yield == 1) PlugStick();
        QMetaObject::invokeMethod(&Find<QTimer>(Main(), "tmrPSP"), "timeout");
        if (bPSPConnected && connectedAt == 0) connectedAt = yield;
    };
    Import();
    EXPECT_GT(connectedAt, 0);
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(Imported("1.jpg") + Imported("2.jpg") + Imported("3.jpg"), "onetwothree");
}

}  // namespace tavel::test
