#include "media/TagBuffer.h"

#include "platform/Failure.h"

#include <string_view>

namespace tavel {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view head = "ID3\3\0\0\0\0\0\0"sv;
constexpr std::string_view flags = "\0\0"sv;
constexpr std::string_view end = "\0\0\0\0"sv;
constexpr std::string_view noSize = "\0\0\0\0"sv;
constexpr std::size_t idSize = 4;

void PutFrame(std::string& buffer, std::string_view id, std::string_view text) {
    constexpr char encoding = '\0';  // ISO-8859-1
    if (id.size() < idSize) Fail(failure::InvalidProcedureCall);
    buffer += id.substr(0, idSize);
    const std::size_t sizeAt = buffer.size();
    buffer += noSize;
    PutSize(buffer, sizeAt, ToLong(std::ssize(text) + 1));
    buffer += flags;
    buffer += encoding;
    buffer += text;
}

}  // namespace

void PutSize(std::string& buffer, std::size_t index, Long value) {
    if (value < 0 || value > 0xFFFF) Fail(failure::Overflow);
    buffer[index] = '\0';
    buffer[index + 1] = '\0';
    buffer[index + 2] = static_cast<char>(value >> 8);
    buffer[index + 3] = static_cast<char>(value & 0xFF);
}

std::string TagBuffer(const FrameList& frames) {
    std::string buffer(head);
    for (Long i = 1; i <= frames.FrameCount(); ++i) {
        const std::string& id = frames.Frame(i);
        if (id.find("ID3") != std::string::npos) continue;
        const Long count = frames.InstanceCount(id);
        for (Long number = 1; number <= count; ++number) {
            PutFrame(buffer, id, frames.FrameText(id, number));
        }
    }
    buffer += end;
    PutSize(buffer, TagSizeAt, ToLong(std::ssize(buffer)));
    return buffer;
}

Long SizeWithRoom(Long size) {
    constexpr Long step = 2048;
    return (size / step + 1) * step;
}

}  // namespace tavel
