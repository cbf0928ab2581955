#pragma once

#include "support/DeviceRecorders.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

#include <functional>
#include <memory>
#include <string>

namespace tavel::test {

// A file service that puts what it changes on the list of the windows' calls too, and whose raw
// files a test can take the place of.
class DeviceFiles : public FaultyFileService {
  public:
    explicit DeviceFiles(Calls& windowCalls) : m_calls(windowCalls) {}

    // Makes a raw file of a path; null leaves it to the service.
    std::function<std::unique_ptr<RawFile>(std::string_view, RawMode)> replaceRaw;

    void CreateFolder(std::string_view path) override;
    void CopyFile(std::string_view source, std::string_view target, bool overwrite) override;
    std::unique_ptr<RawFile> OpenRaw(std::string_view path, RawMode mode, Long& error) override;

  private:
    Calls& m_calls;
};

// The engine's shared state as at start, drives that are folders of the fixture, and recorders of
// what the device side asks of the windows.
class DeviceTest : public ::testing::Test {
  protected:
    DeviceTest();
    ~DeviceTest() override;

    // A removable drive, empty at first.
    FakeDrive& PlugStick(char letter);
    // One with the identity file and the PSP's folders.
    FakeDrive& PlugPSP(char letter = 'e');
    // Plugs a PSP in as e:, connects it and forgets the calls so far.
    void Connect();

    // Paths on a stick, as the host spells them.
    std::string HostOf(char letter, const std::string& path) const;
    void Put(char letter, const std::string& path, const std::string& bytes) const;
    std::string BytesOn(char letter, const std::string& path) const;
    bool IsOn(char letter, const std::string& path) const;
    // Makes the identity file of e: one that can neither be read nor written, for all its size.
    void SpoilIdentityFile() const;

    TempFolder temp;
    Calls calls;
    DeviceFiles files{calls};
    MessageBoxesRecorder boxes{calls};
    CopyWindowRecorder frmCopy{calls};
    DevicePanelsRecorder panels{calls};
    EventLoopRecorder events{calls};
};

}  // namespace tavel::test
