#include "core/modRegistry.h"

#include "platform/Failure.h"
#include "platform/ProfileService.h"
#include "platform/Text.h"

#include <cstdint>

namespace tavel {

namespace {

constexpr Long NothingToActOn = 0;
constexpr Long ProfileMode = 1;
constexpr Long StatusAtStart = 99;
constexpr std::size_t BufferSize = 255;

// This host has no registry: opening or making a key of it fails with the platform's own error.
constexpr Long RegistryKeyNotFound = 2;

struct RootName {
    std::string_view name;
    std::uint32_t handle;
};

constexpr RootName RootNames[] = {{"HKCU", 0x80000001}, {"HKLM", 0x80000002}, {"HKU", 0x80000003},
                                  {"HKDD", 0x80000006}, {"HKCC", 0x80000005}, {"HKCR", 0x80000000}};

bool IsText(std::string_view kind) { return kind == "s" || kind == "S"; }

void Assign(std::string& out, std::string_view text) { out = text; }

void Assign(Integer& out, std::string_view text) { out = TextToInteger(text); }

// A failure ends the wrapper with the status reached so far: an Integer whose text is no number
// keeps the default, and the caller goes on with that.
template <class Out>
Long ReadGuarded(std::string_view root, std::string_view section, std::string_view key,
                 std::string_view kind, std::string_view defaultValue, Out& out) {
    try {
        Assign(out, defaultValue);
        const Long rootKey = GetRootKey(root);
        if (rootKey == NothingToActOn) return StatusAtStart;
        if (rootKey != ProfileMode) return RegistryKeyNotFound;
        if (IsText(kind)) {
            Assign(out, GetPrivateProfileString(section, key, defaultValue, BufferSize, root));
        } else {
            // Only the registry has numbers of its own: from a profile the answer is dropped, and
            // the default stays.
            GetPrivateProfileInt(section, key, 0, root);
        }
        return 0;
    } catch (const Failure&) {
        return StatusAtStart;
    }
}

}  // namespace

Long GetRootKey(std::string_view name) {
    for (const RootName& root : RootNames) {
        const bool isName = name.size() == root.name.size() && EqualsIgnoringCase(name, root.name);
        if (isName) return static_cast<Long>(root.handle);
    }
    return ProfileFileExists(name) ? ProfileMode : NothingToActOn;
}

Long ReadValue(std::string_view root, std::string_view section, std::string_view key,
               std::string_view kind, std::string_view defaultValue, std::string& out) {
    return ReadGuarded(root, section, key, kind, defaultValue, out);
}

Long ReadValue(std::string_view root, std::string_view section, std::string_view key,
               std::string_view kind, std::string_view defaultValue, Integer& out) {
    return ReadGuarded(root, section, key, kind, defaultValue, out);
}

Long WriteValue(std::string_view root, std::string_view section, std::string_view key,
                std::string_view kind, std::string_view value) {
    try {
        const Long rootKey = GetRootKey(root);
        if (rootKey == NothingToActOn) return StatusAtStart;
        if (rootKey != ProfileMode) return RegistryKeyNotFound;
        if (IsText(kind)) WritePrivateProfileString(section, key, value, root);
        return 0;
    } catch (const Failure&) {
        return StatusAtStart;
    }
}

}  // namespace tavel
