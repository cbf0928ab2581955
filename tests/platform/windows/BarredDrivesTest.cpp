#include "platform/windows/DriveSource.h"
#include "platform/windows/Handle.h"
#include "platform/windows/HostFileService.h"
#include "support/HostPlaces.h"
#include "support/Support.h"

#include <filesystem>

// What a user may not look at is told as that, and not as a path that leads nowhere.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

// One drive whose root is a folder.
class OneDrive : public DriveSource {
  public:
    explicit OneDrive(HostDriveEntry drive) : m_drive(std::move(drive)) {}

    bool Has(char letter) override { return letter == m_drive.letter; }
    std::vector<HostDriveEntry> Entries() override { return {m_drive}; }
    HostDriveEntry Entry(char) override { return m_drive; }
    bool HasMedium(char) override { return true; }

  private:
    HostDriveEntry m_drive;
};

class BarredDrives : public ::testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        temp.Write("outer/card/a.bin", "x");
        files =
            MakeHostFileService(temp.HostPath("program"),
                                std::make_unique<OneDrive>(HostDriveEntry{
                                    'e', GetParam(), {}, temp.DrivePath("outer\\card") + "\\"}));
        outer = OpenRights("outer");
        card = OpenRights("outer/card");
        Bar(true);
    }
    void TearDown() override { Bar(false); }

    // A list without entries lets nobody in; a folder may be asked about through the one that it
    // lies in, too.
    void Bar(bool isBarred) const {
        ACL nobody{};
        SECURITY_DESCRIPTOR rights{};
        ASSERT_NE(InitializeAcl(&nobody, sizeof nobody, ACL_REVISION), 0);
        ASSERT_NE(InitializeSecurityDescriptor(&rights, SECURITY_DESCRIPTOR_REVISION), 0);
        ASSERT_NE(SetSecurityDescriptorDacl(&rights, TRUE, isBarred ? &nobody : nullptr, FALSE), 0);
        for (const Handle* folder : {&card, &outer})
            EXPECT_NE(SetKernelObjectSecurity(folder->Get(), DACL_SECURITY_INFORMATION, &rights),
                      0);
    }

    // What can be let in again when nobody is.
    Handle OpenRights(const std::string& folder) const {
        constexpr DWORD anything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        return Handle(CreateFileW(AsHostPath(temp.HostPath(folder)).c_str(), WRITE_DAC, anything,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    }

    TempFolder temp;
    std::unique_ptr<FileService> files;
    Handle outer;
    Handle card;
};

INSTANTIATE_TEST_SUITE_P(Types, BarredDrives, ::testing::Values(DriveFixed, DriveRemovable),
                         [](const auto& type) {
                             return type.param == DriveFixed ? "Fixed" : "Removable";
                         });

}  // namespace

TEST_P(BarredDrives, Refuse_everything_below_their_root) {
    Long error = 0;
    // One name is followed in one step, the other name by name.
    for (const std::string name : {"a.bin", "a.bin."}) {
        const std::string path = "e:\\" + name;
        EXPECT_FALSE(files->OpenRaw(path, RawMode::Read, error));
        EXPECT_EQ(error, 70) << name;
        EXPECT_FALSE(files->OpenRaw(path, RawMode::Create, error));
        EXPECT_EQ(error, 70) << name;
        EXPECT_EQ(FailureOf([&] { files->GetFile(path); }), 70) << name;
        EXPECT_EQ(FailureOf([&] { files->GetFolder(path); }), 70) << name;
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(path, true); }), 70) << name;
        EXPECT_FALSE(files->FileExists(path)) << name;
    }
    EXPECT_EQ(FailureOf([&] { files->GetFolder("e:\\"); }), 70);
}

}  // namespace tavel::test
