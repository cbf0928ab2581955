#pragma once

#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "support/MemoryFile.h"

#include <string>
#include <utility>

namespace tavel::test {

// The program's file service while it lives: one file in memory, under every path. Nothing but
// opening it for reading is offered; an error number keeps it from opening.
class OneFileService : public FileService {
  public:
    explicit OneFileService(std::string bytes, Long error = 0)
        : m_bytes(std::move(bytes)), m_error(error) {
        Service<FileService>::Use(this);
    }
    ~OneFileService() override { Service<FileService>::Use(nullptr); }

    int FailAt = -1;  // the read, from 0, that fails
    bool FailClose = false;

    std::unique_ptr<RawFile> OpenRaw(std::string_view, RawMode mode, Long& error) override {
        if (mode != RawMode::Read) Fail(failure::NoSuchMember);
        error = m_error;
        if (m_error != 0) return nullptr;
        auto file = std::make_unique<MemoryFile>(m_bytes);
        file->FailAt = FailAt;
        file->FailClose = FailClose;
        return file;
    }

    bool DriveExists(std::string_view) override { Fail(failure::NoSuchMember); }
    std::shared_ptr<Drive> GetDrive(std::string_view) override { Fail(failure::NoSuchMember); }
    std::vector<std::string> DriveTexts() override { Fail(failure::NoSuchMember); }
    bool FileExists(std::string_view) override { Fail(failure::NoSuchMember); }
    bool FolderExists(std::string_view) override { Fail(failure::NoSuchMember); }
    FileEntry GetFile(std::string_view) override { Fail(failure::NoSuchMember); }
    FolderContents GetFolder(std::string_view) override { Fail(failure::NoSuchMember); }
    void CreateFolder(std::string_view) override { Fail(failure::NoSuchMember); }
    void MoveFile(std::string_view, std::string_view) override { Fail(failure::NoSuchMember); }
    void CopyFile(std::string_view, std::string_view, bool) override {
        Fail(failure::NoSuchMember);
    }
    void DeleteFile(std::string_view, bool) override { Fail(failure::NoSuchMember); }
    void ReplaceFile(std::string_view, std::string_view) override { Fail(failure::NoSuchMember); }
    void DeleteLinks(std::string_view, std::string_view) override { Fail(failure::NoSuchMember); }
    void CopyRights(std::string_view, std::string_view) override { Fail(failure::NoSuchMember); }
    std::string GetTempFolder() override { Fail(failure::NoSuchMember); }
    std::string CreateTempFile(std::string_view, std::string_view) override {
        Fail(failure::NoSuchMember);
    }
    void CreateTextFile(std::string_view, bool) override { Fail(failure::NoSuchMember); }
    std::string ReadWhole(std::string_view) override { Fail(failure::NoSuchMember); }
    std::string HostPath(std::string_view) override { Fail(failure::NoSuchMember); }
    std::string FromHostPath(std::string_view) override { Fail(failure::NoSuchMember); }

  private:
    std::string m_bytes;
    Long m_error;
};

}  // namespace tavel::test
