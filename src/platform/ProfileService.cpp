#include "platform/ProfileService.h"

#include "platform/Failure.h"
#include "platform/FileService.h"
#include "platform/ProfileFile.h"
#include "platform/ProfileLines.h"
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
    std::optional<FileStamp> stamp;  // of the file that the text was read from or written to
    std::unique_ptr<ProfileText> text;
};

std::shared_ptr<Document>& Kept() {
    static std::shared_ptr<Document> document;
    return document;
}

struct Batch {
    std::string path;
    std::string hostPath;
    bool fileExists = false;
    std::shared_ptr<Document> document;  // null when the file cannot be read
    int depth = 1;
};

std::optional<Batch>& Running() {
    static std::optional<Batch> batch;
    return batch;
}

bool IsIn(const std::optional<Batch>& batch, std::string_view path) {
    if (!batch) return false;
    if (batch->path == path) return true;
    return !batch->hostPath.empty() && batch->hostPath == oFSO().HostPath(path);
}

void Keep(const std::shared_ptr<Document>& document) {
    if (document->stamp && document->stamp->size > keptFrom && !MayChangeUnseen(*document->stamp)) {
        Kept() = document;
    }
}

void Forget(const Document& document) {
    if (Kept() && Kept()->hostPath == document.hostPath) Kept().reset();
}

// Null when something is there that cannot be read.
std::shared_ptr<Document> Load(std::string_view path) {
    auto document = std::make_shared<Document>();
    document->hostPath = oFSO().HostPath(path);
    // The file service knows what is no file to it, such as a link that leads out of a stick.
    std::optional<FileStamp> present;
    if (oFSO().FileExists(path)) present = StampOf(document->hostPath);
    if (present && Kept() && Kept()->hostPath == document->hostPath && Kept()->stamp == present) {
        return Kept();
    }
    Forget(*document);
    std::string bytes;
    if (present) {
        document->stamp.emplace();
        const bool isRead =
            ReadHostFile(document->hostPath, ProfileText::MaxSize, bytes, *document->stamp);
        if (!isRead) return nullptr;
    }
    document->text = std::make_unique<ProfileText>(std::move(bytes));
    Keep(document);
    return document;
}

bool MakeFile(std::string_view path) {
    Long error = 0;
    const std::unique_ptr<RawFile> file = oFSO().OpenRaw(path, RawMode::Create, error);
    return file != nullptr && file->Close();
}

// A text that could not be written is not kept: it is not what the file holds. What a batch has
// written must be there whole or not at all.
bool Save(Document& document, std::string_view path, bool isBatch) {
    if (!document.text->IsChanged()) return true;
    Forget(document);
    if (!document.stamp && !MakeFile(path)) return false;
    const std::string hostPath = oFSO().HostPath(path);
    const auto bytes = [&](const ByteSink& sink) { document.text->Tell(sink); };
    if (!ReplaceHostFile(hostPath, bytes, !isBatch)) return false;
    document.hostPath = hostPath;
    document.stamp = StampOf(hostPath);
    document.text->MarkSaved();
    return true;
}

// The batch's document, or what the file holds now; null when that cannot be read.
struct Look {
    explicit Look(std::string_view path)
        : isInBatch(IsIn(Running(), path)),
          loaded(isInBatch ? nullptr : Load(path)),
          document(isInBatch ? Running()->document.get() : loaded.get()) {}

    std::optional<std::string_view> Value(std::string_view section, std::string_view key) const {
        return document == nullptr ? std::nullopt : document->text->Value(section, key);
    }

    const bool isInBatch;
    const std::shared_ptr<Document> loaded;
    Document* const document;
};

template <class Change>
bool Edit(std::string_view path, Change&& change) {
    const Look look(path);
    if (look.document == nullptr || !change(*look.document->text)) return false;
    if (look.isInBatch) return true;
    if (!Save(*look.loaded, path, false)) return false;
    Keep(look.loaded);
    return true;
}

}  // namespace

std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size,
                                    std::string_view path) {
    if (size == 0) return {};
    const Look look(path);
    const std::optional<std::string_view> value = look.Value(section, key);
    return std::string(CutAt(value.value_or(WithoutBlanksAfter(defaultValue)), size - 1));
}

unsigned GetPrivateProfileInt(std::string_view section, std::string_view key, int defaultValue,
                              std::string_view path) {
    const Look look(path);
    const std::optional<std::string_view> value = look.Value(section, key);
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
    return Edit(path, [&](ProfileText& text) { return text.Write(section, key, value); });
}

bool WritePrivateProfileLines(std::string_view section, const ProfileLines& lines,
                              std::string_view path) {
    return Edit(path, [&](ProfileText& text) { return text.Write(section, lines); });
}

ProfileBatch::ProfileBatch(std::string_view path) {
    if (Running()) {
        if (!IsIn(Running(), path)) Fail(failure::InvalidProcedureCall);
        ++Running()->depth;
        return;
    }
    Batch batch;
    batch.path = path;
    batch.fileExists = ProfileFileExists(path);
    batch.document = Load(path);
    if (batch.document != nullptr) batch.hostPath = batch.document->hostPath;
    Running() = std::move(batch);
}

ProfileBatch::~ProfileBatch() {
    if (--Running()->depth > 0) return;
    const Batch batch = std::move(*Running());
    Running().reset();
    if (batch.document != nullptr && Save(*batch.document, batch.path, true)) Keep(batch.document);
}

bool ProfileFileExists(std::string_view path) {
    // Any failure of the test stands for a missing file.
    try {
        if (IsIn(Running(), path)) return Running()->fileExists;
        return oFSO().FileExists(path) && !oFSO().GetFile(path).Hidden;
    } catch (const Failure&) {
        return false;
    }
}

}  // namespace tavel
