#include "library/ZipStart.h"

#include "media/ByteNumbers.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavel {

namespace {

constexpr std::string_view listSignature = "PK\1\2";
constexpr std::string_view endSignature = "PK\5\6";
constexpr std::string_view largeEndSignature = "PK\6\6";
constexpr std::string_view locatorSignature = "PK\6\7";

constexpr std::size_t endSize = 22;  // without the comment behind it
constexpr std::size_t largeEndSize = 56;
constexpr std::size_t locatorSize = 20;
constexpr std::size_t longestComment = 65535;
constexpr std::size_t tailSize = locatorSize + endSize + longestComment;

// The one with whose comment the file ends. An archive that was cut off ends otherwise, and then
// one that is stored in it must not be taken for it.
std::size_t EndRecord(std::string_view tail) {
    std::size_t end = tail.rfind(endSignature, tail.size() - endSize);
    const auto endsTheFile = [&] {
        return end + endSize + LittleEndianNumber(tail.substr(end + 20, 2)) == tail.size();
    };
    while (end != std::string_view::npos && !endsTheFile())
        end = end == 0 ? std::string_view::npos : tail.rfind(endSignature, end - 1);
    return end;
}

// A record of the archive: where it lies, if nothing stands between it and the next, and where it
// would lie if the archive began with its file.
struct Record {
    std::string_view Signature;
    std::int64_t Place;
    std::uint64_t ToldPlace;
};

// The one that the end of the archive leads to, which lies at `end` in the file's last bytes: the
// list of entries, or the end of a large archive.
Record RecordBefore(std::string_view tail, std::size_t end, std::int64_t tailPlace) {
    const std::int64_t place = tailPlace + static_cast<std::int64_t>(end);
    if (end >= locatorSize && tail.substr(end - locatorSize).starts_with(locatorSignature)) {
        const std::string_view locator = tail.substr(end - locatorSize);
        return {largeEndSignature, place - std::int64_t{locatorSize + largeEndSize},
                LittleEndianNumber(locator.substr(8, 8))};
    }
    const auto listSize = static_cast<std::int64_t>(LittleEndianNumber(tail.substr(end + 12, 4)));
    return {listSignature, place - listSize, LittleEndianNumber(tail.substr(end + 16, 4))};
}

bool IsAt(FileBytes& file, std::int64_t place, std::string_view signature) {
    file.Seek(place);
    return file.Peek(signature.size()) == signature;
}

}  // namespace

std::int64_t StartOfArchive(FileBytes& file) {
    const std::int64_t tailPlace =
        std::max<std::int64_t>(file.Length() - std::int64_t{tailSize}, 0);
    file.Seek(tailPlace);
    const std::string tail(file.Peek(tailSize));
    if (tail.size() < endSize) return 0;
    const std::size_t end = EndRecord(tail);
    if (end == std::string::npos) return 0;
    const Record record = RecordBefore(tail, end, tailPlace);
    if (record.Place <= 0 || record.ToldPlace >= static_cast<std::uint64_t>(record.Place)) return 0;
    const auto toldPlace = static_cast<std::int64_t>(record.ToldPlace);
    return IsAt(file, record.Place, record.Signature) ? record.Place - toldPlace : 0;
}

}  // namespace tavel
