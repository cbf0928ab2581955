#include "library/Identifiers.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "platform/Failure.h"
#include "platform/Text.h"

#include <iterator>
#include <limits>
#include <vector>

namespace tavel {

namespace {

struct Prefix {
    MediaType type;
    std::string_view letters;
};

constexpr Prefix Prefixes[] = {{mtPhoto, "ph"},   {mtMagazine, "ma"},  {mtPhotoAlbum, "pa"},
                               {mtVideo, "vd"},   {mtVidSeries, "vs"}, {mtMusic, "mu"},
                               {mtPlaylist, "pl"}};

constexpr std::size_t PartLength = 5;

std::string_view PrefixOf(Integer iType) {
    for (const Prefix& prefix : Prefixes) {
        if (prefix.type == iType) return prefix.letters;
    }
    return {};
}

// The first five characters that are no blanks. Behind the last character the walk sees that one
// again and again, so short names are filled up with it and a blank there is never got past: the
// walk then ends when its counter, an Integer, is full.
template <class Walk>
std::string GatherPart(Walk first, Walk last) {
    std::string part;
    std::size_t gathered = 0;
    Walk at = first;
    for (Integer step = 0; first != last && step < std::numeric_limits<Integer>::max(); ++step) {
        if (*at != " ") {
            part.append(*at);
            if (++gathered == PartLength) return part;
        }
        if (std::next(at) != last) ++at;
    }
    Fail(failure::Overflow);
}

std::string HeadAndTail(std::string_view name) {
    const std::vector<std::string_view> characters = Characters(name);
    std::string parts = GatherPart(characters.begin(), characters.end());
    return parts += GatherPart(characters.rbegin(), characters.rend());
}

std::string WithPrefix(Integer iType, const std::string& sBody) {
    return std::string(PrefixOf(iType)) + "_" + sBody;
}

}  // namespace

std::string MakeDBID(std::string_view sSource, Integer iType) {
    if (IsItemType(iType)) return MakeDBID(oFSO().GetFile(sSource), iType);
    // A playlist's id has no body, so the library holds one playlist at most.
    if (!IsGroupType(iType) || iType == mtPlaylist) return WithPrefix(iType, "");
    return WithPrefix(iType, HeadAndTail(sSource) + RandomLetters(10));
}

std::string MakeDBID(const FileEntry& file, Integer itemType) {
    const std::string size = std::to_string(file.Size).substr(0, PartLength);
    return WithPrefix(itemType, HeadAndTail(StripExt(file.Name)) + PadZeros(size, PartLength) +
                                    RandomLetters(10));
}

Integer GetDBIDType(std::string_view sID) {
    std::size_t end = 0;
    for (int i = 0; i < 2 && end < sID.size(); ++i) end += CharacterLength(sID, end);
    if (end >= sID.size() || sID[end] != '_') return -1;
    for (const Prefix& prefix : Prefixes) {
        if (prefix.letters == sID.substr(0, end)) return prefix.type;
    }
    return mtPhoto;
}

Integer GetMediaClass(Integer iType) {
    switch (iType) {
        case mtVideo:
        case mtVidSeries:
            return mtVideo;
        case mtMusic:
        case mtPlaylist:
            return mtMusic;
        default:
            return mtPhoto;
    }
}

Integer GetGroupType(Integer iType) {
    switch (iType) {
        case mtPhoto:
            return mtMagazine;
        case mtVideo:
            return mtVidSeries;
        case mtMusic:
            return mtPlaylist;
        default:
            return 0;
    }
}

}  // namespace tavel
