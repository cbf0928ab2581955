#include "library/ZipNames.h"

#include "platform/Text.h"

#include <algorithm>
#include <vector>

namespace tavel {

namespace {

// The characters of the bytes from 0x80 on.
constexpr std::u16string_view UpperHalf =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»"
    u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
    u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩"
    u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(UpperHalf.size() == 128);

std::string FromCodePage437(std::string_view bytes) {
    std::u16string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte < 0x80 ? char16_t{byte} : UpperHalf[byte - 0x80u];
    }
    return FromUnicode(text);
}

std::string Decoded(std::string_view sStored) {
    return ToUtf8(sStored) == sStored ? std::string(sStored) : FromCodePage437(sStored);
}

}  // namespace

std::string ZipEntryName(std::string_view sStored) {
    std::string sDecoded = Decoded(sStored);
    std::replace(sDecoded.begin(), sDecoded.end(), '/', '\\');
    std::string sName;
    std::string_view separator;
    for (const std::string& sPart : Split(sDecoded, '\\')) {
        sName += separator;
        separator = sPart == "." ? "" : "\\";
        if (sPart != ".") sName += sPart;
    }
    // What is left of "." and "./", by which archives of a whole folder begin.
    if (sName.empty() && !sDecoded.empty()) sName = "\\";
    return sName;
}

bool StaysBelow(std::string_view sName) {
    const std::vector<std::string> sParts = Split(sName, '\\');
    const bool bClimbs = std::find(sParts.begin(), sParts.end(), "..") != sParts.end();
    return !sParts.front().empty() && !bClimbs && sName.find(':') == std::string_view::npos;
}

}  // namespace tavel
