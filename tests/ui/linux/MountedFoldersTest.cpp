#include "core/PublicStuff.h"
#include "platform/linux/HostFileService.h"
#include "support/linux/MountedDrives.h"
#include "ui/support/FolderPickers.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

namespace tavel::test {

namespace {

// A stick has two places here, its drive and the folder that it is mounted on.
class MountedFolderPickers : public FolderPickers {};

}  // namespace

TEST_F(MountedFolderPickers, a_folder_of_a_mounted_stick_comes_back_as_a_path_that_lasts) {
    MountTable mounts;
    mounts.Mount(folder.HostPath("photos"), "STICK");
    const auto host = MakeHostFileService(folder.HostPath("program"), MakeMountSource(mounts));
    Service<FileService>::Use(host.get());
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        QTreeWidgetItem* stick = Tree(box).topLevelItem(1);
        ASSERT_EQ(FromQString(stick->text(0)), "d: [STICK]");
        stick->setExpanded(true);
        Tree(box).setCurrentItem(Child(stick, "2006"));
        QTest::mouseClick(&Find(box, "cmdOK"), Qt::LeftButton);
    });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "", "", false, false), folder.DrivePath("photos/2006"));
    Service<FileService>::Use(&service);
}

TEST_F(MountedFolderPickers, a_folder_whose_path_to_keep_is_too_long_is_not_picked) {
    MountTable mounts;
    mounts.Mount(folder.HostPath("photos"), "STICK");
    const std::string fits(MaxPathCharacters - folder.DrivePath("photos").size() - 1, 'x');
    folder.Write("photos/" + fits + "/a.jpg", "");
    folder.Write("photos/" + fits + "y/a.jpg", "");
    const auto host = MakeHostFileService(folder.HostPath("program"), MakeMountSource(mounts));
    Service<FileService>::Use(host.get());
    {
        FolderDialog dialog(request);
        QTreeWidgetItem* stick = Tree(dialog).topLevelItem(1);
        stick->setExpanded(true);
        Tree(dialog).setCurrentItem(Child(stick, fits.c_str()));
        EXPECT_TRUE(Find(dialog, "cmdOK").isEnabled());
        Tree(dialog).setCurrentItem(Child(stick, (fits + 'y').c_str()));
        EXPECT_FALSE(Find(dialog, "cmdOK").isEnabled());
    }
    Service<FileService>::Use(&service);
}

}  // namespace tavel::test
