#include "platform/OnEachDrive.h"
#include "platform/windows/Handle.h"
#include "platform/windows/HostPaths.h"

namespace tavel::test {

namespace {

class NamesOnWindows : public OnEachDrive {
  protected:
    // As other systems name files on a stick.
    void PutAsItStands(const std::string& name) const {
        const std::wstring folder = CallPath(temp.HostPath("card"));
        const Handle file(CreateFileW(CallPathBelow(folder, name).c_str(), GENERIC_WRITE, 0,
                                      nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        std::size_t written = 0;
        ASSERT_TRUE(file.IsOpen()) << name;
        EXPECT_TRUE(file.Write(name, written));
    }
};

INSTANTIATE_TEST_SUITE_P(Drives, NamesOnWindows, ::testing::Values('c', 'e'),
                         [](const auto& drive) { return std::string(1, drive.param); });

}  // namespace

TEST_P(NamesOnWindows, Devices_are_nowhere_in_a_path) {
    for (const char* name : {"nul", "CON", "com1.txt", "nul\\a.txt", "sub\\prn"}) {
        EXPECT_FALSE(files->FileExists(At(name))) << name;
        EXPECT_FALSE(files->FolderExists(At(name))) << name;
        Long error = 0;
        EXPECT_FALSE(files->OpenRaw(At(name), RawMode::Read, error)) << name;
    }
}

TEST_P(NamesOnWindows, Files_that_have_such_names_all_the_same_are_found_listed_and_deleted) {
    for (const std::string name : {"nul", "com1.txt", "end.", "end "}) {
        PutAsItStands(name);
        EXPECT_EQ(files->ReadWhole(At(name)), name);
        ASSERT_EQ(files->GetFolder(root + "\\").Files.size(), 1u) << name;
        EXPECT_EQ(files->GetFolder(root + "\\").Files[0].Name, name);
        const std::string hostPath = files->HostPath(At(name));
        EXPECT_EQ(hostPath.substr(0, 4), "\\\\?\\") << name;
        files->DeleteFile(At(name), false);
        EXPECT_FALSE(files->FileExists(At(name))) << name;
    }
}

TEST_P(NamesOnWindows,
       A_file_keeps_a_name_that_no_new_file_would_get_when_another_takes_its_place) {
    for (const std::string name : {"con.mp3", "end."}) {
        PutAsItStands(name);
        Put("new.tmp", "new");
        files->ReplaceFile(At(name), At("new.tmp"));
        EXPECT_EQ(files->ReadWhole(At(name)), "new");
        EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
        files->DeleteFile(At(name), false);
    }
}

TEST_P(NamesOnWindows, A_file_gives_its_place_under_any_spelling) {
    Put("one.mp3", "old");
    Put("new.tmp", "new");
    files->ReplaceFile(At("ONE.mp3"), At("new.tmp"));
    EXPECT_EQ(Bytes("one.mp3"), "new");
    EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
}

TEST_P(NamesOnWindows, Characters_of_two_units_are_told_as_they_are_on_the_disk) {
    const std::string name = "\U0001f3b5 \U00010400.mp3";
    files->CreateTextFile(At(name), false);
    EXPECT_TRUE(fs::exists(Host("") / L"\xd83c\xdfb5 \xd801\xdc00.mp3"));
    ASSERT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
    EXPECT_EQ(files->GetFolder(root + "\\").Files[0].Name, name);
    EXPECT_EQ(files->GetFile(At(name)).Name, name);
    EXPECT_EQ(files->FromHostPath(files->HostPath(At(name))),
              files->FromHostPath(files->HostPath(root)) + "\\" + name);
    files->MoveFile(At(name), At("\U0001f3b6.mp3"));
    files->CopyFile(At("\U0001f3b6.mp3"), At(name), false);
    files->ReplaceFile(At("\U0001f3b6.mp3"), At(name));
    EXPECT_EQ(files->GetFolder(root + "\\").Files.size(), 1u);
    files->DeleteFile(At("\U0001f3b6.mp3"), false);
    EXPECT_TRUE(files->GetFolder(root + "\\").Files.empty());
}

// A pattern to some calls of the host, a stream of a file to others.
TEST_P(NamesOnWindows, Refused_characters_find_nothing) {
    Put("a.txt", "x");
    for (const char* name : {"*", "a.*", "?.txt", "a.t<", "a\"txt", "a.txt:stream", "a.txt::$DATA",
                             "/a.txt", "a.txt/"}) {
        EXPECT_FALSE(files->FileExists(At(name))) << name;
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(At(name), true); }), 53) << name;
        EXPECT_EQ(FailureOf([&] { files->CreateTextFile(At(name), true); }), 52) << name;
    }
    EXPECT_EQ(Bytes("a.txt"), "x");
}

}  // namespace tavel::test
