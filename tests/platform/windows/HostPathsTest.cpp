#include "platform/windows/HostPaths.h"
#include "support/HostDrives.h"

namespace tavel::test {

namespace {

using HostPaths = HostDrives;

}  // namespace

TEST_F(HostPaths, Calls_get_paths_that_the_host_takes_as_they_stand) {
    EXPECT_EQ(CallPath("C:\\Music\\a.mp3"), L"\\\\?\\C:\\Music\\a.mp3");
    EXPECT_EQ(CallPath("c:/Music//x/../a.mp3"), L"\\\\?\\c:\\Music\\a.mp3");
    EXPECT_EQ(CallPath("C:\\"), L"\\\\?\\C:\\");
    EXPECT_EQ(CallPath("C:"), L"\\\\?\\C:\\");
    EXPECT_EQ(CallPath("C:\\..\\..\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(CallPath("\\\\?\\C:\\nul."), L"\\\\?\\C:\\nul.");
    EXPECT_EQ(CallPath("//nas/music/a"), L"\\\\?\\UNC\\nas\\music\\a");
    EXPECT_EQ(CallPath("\\\\?\\UNC\\nas\\music\\..\\.."), L"\\\\?\\UNC\\nas\\music\\");
    for (const char* text : {"", "a", "\\a", "\\\\nas", "\\\\.\\pipe\\x", "\\\\?\\"})
        EXPECT_EQ(CallPath(text), L"") << text;
}

TEST_F(HostPaths, A_host_path_keeps_its_prefix_where_a_plain_one_would_lead_elsewhere) {
    EXPECT_EQ(HostPathOf(L"\\\\?\\C:\\Music\\a.mp3"), "C:\\Music\\a.mp3");
    EXPECT_EQ(HostPathOf(L"\\\\?\\UNC\\nas\\music\\a"), "\\\\nas\\music\\a");
    const std::wstring longPath = L"\\\\?\\C:\\" + std::wstring(300, L'a');
    for (const std::wstring& path :
         {std::wstring(L"\\\\?\\C:\\nul.txt"), std::wstring(L"\\\\?\\C:\\end.\\a"), longPath})
        EXPECT_EQ(CallPath(HostPathOf(path)), path);
    EXPECT_EQ(HostPathOf(longPath).substr(0, 7), "\\\\?\\C:\\");
}

TEST_F(HostPaths, A_drive_path_is_the_host_path_with_a_small_letter) {
    EXPECT_EQ(files->FromHostPath("E:/PSP/MUSIC/"), "e:\\PSP\\MUSIC");
    EXPECT_EQ(files->FromHostPath("C:\\"), "c:\\");
    EXPECT_EQ(files->FromHostPath("\\\\?\\C:\\a"), "c:\\a");
}

TEST_F(HostPaths, What_another_computer_shares_keeps_its_path) {
    EXPECT_EQ(files->FromHostPath("//nas/music/a.mp3"), "\\\\nas\\music\\a.mp3");
    EXPECT_EQ(files->FromHostPath("\\\\?\\UNC\\nas\\music\\"), "\\\\nas\\music\\");
    const std::optional<DrivePath> path = ParseSharePath("\\\\nas\\music\\..\\a\\.\\b\\");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->letter, 0);
    EXPECT_EQ(path->Text(), "\\\\nas\\music\\a\\b");
    EXPECT_TRUE(path->endsInSeparator);
    EXPECT_FALSE(files->FileExists("\\\\no such computer\\music\\a.mp3"));
}

TEST_F(HostPaths, Host_paths_tell_names_as_their_folders_spell_them) {
    temp.Write("Music/One.mp3", "x");
    const std::string path = files->HostPath(temp.DrivePath("MUSIC\\one.MP3"));
    EXPECT_TRUE(path.ends_with("\\Music\\One.mp3")) << path;
}

}  // namespace tavel::test
