#include "platform/ProfileService.h"

#include "platform/Failure.h"
#include "platform/FileService.h"
#include "platform/ProfileFile.h"
#include "platform/ProfileSpelling.h"
#include "platform/ProfileText.h"
#include "platform/Text.h"

#include <memory>
#include <optional>
#include <utility>

namespace tavel {

namespace {

// Larger files are kept in memory until they change; others are read anew each time.
constexpr std::size_t keptFrom = 64 * 1024;

// A profile file as it was read. Without a file there is a text all the same, an empty one.
struct Document {
    std::string hostPath;
    std::optional<FileStamp> stamp;     // of the file that the text was read from
    bool mayBeKept = false;             // as long as that file has this stamp
    std::unique_ptr<ProfileText> text;  // null when something is there that cannot be read
};

struct Batch {
    std::string path;
    bool fileExists = false;
    Document document;
    int depth = 1;
};

std::optional<Batch> running;

// What was read last outside of a batch.
Document lastRead;

bool IsInBatch(std::string_view path) {
    if (!running) return false;
    if (running->path == path) return true;
    const std::string& hostPath = running->document.hostPath;
    return !hostPath.empty() && hostPath == oFSO().HostPath(path);
}

// What the file holds now.
Document Load(std::string_view path) {
    Document document = std::exchange(lastRead, {});
    const std::string hostPath = oFSO().HostPath(path);
    // The file service knows what is no file to it, such as a link that leads out of a stick.
    std::optional<FileStamp> present;
    if (oFSO().FileExists(path)) present = StampOf(hostPath);
    const bool isSame = document.hostPath == hostPath && document.stamp == present;
    if (isSame && document.mayBeKept) return document;
    document = {hostPath, present, false, nullptr};
    std::string bytes;
    if (present) {
        // Asked before the reading, so that no change after it goes unseen.
        const bool isSettled = !MayChangeUnseen(*present);
        if (!ReadHostFile(hostPath, ProfileText::MaxSize, bytes, *document.stamp)) return document;
        document.mayBeKept = isSettled && bytes.size() > keptFrom && document.stamp == present;
    }
    document.text = std::make_unique<ProfileText>(std::move(bytes));
    return document;
}

bool MakeFile(std::string_view path) {
    Long error = 0;
    const std::unique_ptr<RawFile> file = oFSO().OpenRaw(path, RawMode::Create, error);
    return file != nullptr && file->Close();
}

// What a batch has written must be there whole or not at all. The text is not kept: it may not have
// become what the file holds, and a change right behind this one could go unseen.
bool Save(Document& document, std::string_view path, bool isBatch) {
    if (document.text == nullptr || !document.text->IsChanged()) return true;
    document.mayBeKept = false;
    if (!document.stamp && !MakeFile(path)) return false;
    const auto tellBytes = [&](const ByteSink& sink) { document.text->Tell(sink); };
    return ReplaceHostFile(oFSO().HostPath(path), tellBytes, !isBatch);
}

// The batch's document, or what the file holds now.
Document& Look(std::string_view path) {
    if (IsInBatch(path)) return running->document;
    return lastRead = Load(path);
}

std::optional<std::string_view> Value(std::string_view section, std::string_view key,
                                      std::string_view path) {
    const Document& document = Look(path);
    return document.text == nullptr ? std::nullopt : document.text->Value(section, key);
}

}  // namespace

std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size,
                                    std::string_view path) {
    if (size == 0) return {};
    const std::optional<std::string_view> value = Value(section, key, path);
    return std::string(CutAt(value.value_or(WithoutBlanksAfter(defaultValue)), size - 1));
}

unsigned GetPrivateProfileInt(std::string_view section, std::string_view key, int defaultValue,
                              std::string_view path) {
    const std::optional<std::string_view> value = Value(section, key, path);
    if (!value || value->empty()) return static_cast<unsigned>(defaultValue);
    const bool isNegative = value->front() == '-';
    unsigned number = 0;
    for (std::size_t i = isNegative || value->front() == '+' ? 1 : 0; i < value->size(); ++i) {
        const char digit = (*value)[i];
        if (digit < '0' || digit > '9') break;
        number = number * 10 + static_cast<unsigned>(digit - '0');
    }
    return isNegative ? 0 - number : number;
}

bool WritePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, std::string_view path) {
    Document& document = Look(path);
    if (document.text == nullptr || !document.text->Write(section, key, value)) return false;
    const bool isInBatch = running && &document == &running->document;
    return isInBatch || Save(document, path, false);
}

ProfileBatch::ProfileBatch(std::string_view path) {
    if (running) {
        if (!IsInBatch(path)) Fail(failure::InvalidProcedureCall);
        ++running->depth;
        return;
    }
    const bool fileExists = ProfileFileExists(path);
    running = Batch{std::string(path), fileExists, Load(path)};
}

ProfileBatch::~ProfileBatch() {
    if (--running->depth > 0) return;
    Batch batch = std::move(*running);
    running.reset();
    // Like any other write that fails, the last one is not noticed.
    try {
        Save(batch.document, batch.path, true);
    } catch (const Failure&) {
    }
    lastRead = std::move(batch.document);
}

bool ProfileFileExists(std::string_view path) {
    // Any failure of the test stands for a missing file.
    try {
        if (IsInBatch(path)) return running->fileExists;
        return oFSO().FileExists(path) && !oFSO().GetFile(path).Hidden;
    } catch (const Failure&) {
        return false;
    }
}

}  // namespace tavel
