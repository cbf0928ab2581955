#include "platform/windows/PickedPaths.h"

#include <gmock/gmock.h>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The rest of the box's buffer is zeros.
std::wstring Told(const std::vector<std::wstring>& pieces) {
    std::wstring told;
    for (const std::wstring& piece : pieces) told += piece + L'\0';
    return told + std::wstring(100, L'\0');
}

}  // namespace

TEST(PickedPaths, A_single_file_is_told_by_its_path) {
    EXPECT_THAT(PickedPaths(Told({L"C:\\Music\\a.mp3"})), ElementsAre("c:\\Music\\a.mp3"));
    EXPECT_THAT(PickedPaths(Told({L"\\\\nas\\music\\a.mp3"})),
                ElementsAre("\\\\nas\\music\\a.mp3"));
}

TEST(PickedPaths, Several_are_told_by_their_folder_and_names) {
    EXPECT_THAT(PickedPaths(Told({L"C:\\Music", L"a.mp3", L"b.mp3"})),
                ElementsAre("c:\\Music\\a.mp3", "c:\\Music\\b.mp3"));
    EXPECT_THAT(PickedPaths(Told({L"C:\\", L"a.mp3", L"b.mp3"})),
                ElementsAre("c:\\a.mp3", "c:\\b.mp3"));
}

TEST(PickedPaths, Out_of_a_view_of_several_folders_each_comes_with_its_own) {
    EXPECT_THAT(
        PickedPaths(Told({L"C:\\Music", L"a.mp3", L"D:\\Old\\b.mp3", L"\\\\nas\\m\\c.mp3"})),
        ElementsAre("c:\\Music\\a.mp3", "d:\\Old\\b.mp3", "\\\\nas\\m\\c.mp3"));
}

TEST(PickedPaths, What_has_no_path_is_not_told) {
    EXPECT_THAT(PickedPaths(Told({})), IsEmpty());
    EXPECT_THAT(PickedPaths({}), IsEmpty());
}

}  // namespace tavel::test
