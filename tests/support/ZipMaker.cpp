#include "support/ZipMaker.h"

#include <zlib.h>

#include <stdexcept>

namespace tavel::test {

namespace {

std::string Number(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

std::uint32_t ChecksumOf(const std::string& bytes) {
    const auto* data = reinterpret_cast<const Bytef*>(bytes.data());
    return static_cast<std::uint32_t>(crc32_z(0, data, bytes.size()));
}

// What the entry's own header and the list at the end of the archive have alike.
std::string CommonFields(const ZipItem& item, std::size_t packedSize) {
    const int method = item.method != 0 ? item.method : item.isDeflated ? Z_DEFLATED : 0;
    return Number(20, 2) + Number(item.flags, 2) + Number(static_cast<unsigned>(method), 2) +
           Number(item.time, 2) + Number(item.date, 2) +
           Number(item.checksum.value_or(ChecksumOf(item.bytes)), 4) + Number(packedSize, 4) +
           Number(item.size.value_or(static_cast<std::uint32_t>(item.bytes.size())), 4) +
           Number(item.name.size(), 2) + Number(item.extra.size(), 2);
}

}  // namespace

std::string Deflate(const std::string& bytes) {
    z_stream stream{};
    if (deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 9, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("no deflater");
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

std::string MakeZip(const std::vector<ZipItem>& items, const std::string& comment) {
    std::string entries;
    std::string list;
    for (const ZipItem& item : items) {
        const std::string packed = item.isDeflated ? Deflate(item.bytes) : item.bytes;
        const std::string common = CommonFields(item, packed.size());
        list += "PK\1\2" + Number(20, 1) + Number(item.system, 1) + common + Number(0, 2 + 2 + 2) +
                Number(item.attributes, 4) +
                Number(item.offset.value_or(static_cast<std::uint32_t>(entries.size())), 4) +
                item.name + item.extra;
        entries += "PK\3\4" + common + item.name + item.extra + packed;
    }
    return entries + list + "PK\5\6" + Number(0, 2 + 2) + Number(items.size(), 2) +
           Number(items.size(), 2) + Number(list.size(), 4) + Number(entries.size(), 4) +
           Number(comment.size(), 2) + comment;
}

}  // namespace tavel::test
