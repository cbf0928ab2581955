#include "platform/HostNames.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace tavel {

namespace {

bool IsRefusedCharacter(char c) {
    return static_cast<unsigned char>(c) < 0x20 ||
           std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
}

// CON, NUL, COM1 and the like, with any extension: the setting never makes files of such names,
// and a stick that carried one could not be used there.
bool IsDeviceName(std::string_view name) {
    static constexpr std::array<std::string_view, 6> plain{"con", "prn",    "aux",
                                                           "nul", "conin$", "conout$"};
    std::string base = LowerCase(name.substr(0, name.find('.')));
    base.resize(WithoutDroppedEnd(base).size());
    if (std::find(plain.begin(), plain.end(), base) != plain.end()) return true;
    if (base.rfind("com", 0) != 0 && base.rfind("lpt", 0) != 0) return false;
    const std::string_view port = std::string_view(base).substr(3);
    if (port.size() == 1) return port[0] >= '1' && port[0] <= '9';
    return port == "\u00b9" || port == "\u00b2" || port == "\u00b3";
}

}  // namespace

bool HasRefusedCharacter(std::string_view name) {
    return std::any_of(name.begin(), name.end(), IsRefusedCharacter);
}

std::string_view WithoutDroppedEnd(std::string_view name) {
    const std::size_t last = name.find_last_not_of(" .");
    return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string NameToCreate(std::string_view name) {
    std::string kept = ToUtf8(WithoutDroppedEnd(name));
    if (HasRefusedCharacter(kept) || IsDeviceName(kept)) return {};
    return kept;
}

std::string MatchKey(std::string_view name) {
    return LowerCase(IsAscii(name) ? std::string(name) : ToUtf8(name));
}

}  // namespace tavel
