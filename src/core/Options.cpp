#include "core/Options.h"

#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "platform/Activity.h"
#include "platform/Failure.h"

namespace tavel {

namespace {

std::string Option(std::string_view key) {
    std::string text;
    ReadValue(sDBFile, "options", key, "s", "0", text);
    return text;
}

bool Flag(std::string_view key) { return TextToBoolean(Option(key)); }

void LoadList(std::string_view section, std::vector<std::string>& list) {
    const Doing reading("Reading the list", section, "of", sDBFile);
    Integer n = 0;
    ReadValue(sDBFile, section, "no", "s", "0", n);
    const Integer upper = ToInteger(n - 1);
    if (upper < 0) Fail(failure::SubscriptOutOfRange);
    list.assign(static_cast<std::size_t>(n), {});
    for (std::size_t i = 0; i < list.size(); ++i)
        ReadValue(sDBFile, section, std::to_string(i), "s", "XYZXYZ", list[i]);
}

}  // namespace

void LoadOptions() {
    const Doing reading("Reading the options of", sDBFile);
    bFirstTime = Flag("bFirstTime");
    bGroupZip = Flag("bGroupZip");
    bAutoGroup = Flag("bAutoGroup");
    bScanOnAppStart = Flag("bScanOnAppStart");
    bAddHiddenFiles = Flag("bAddHiddenFiles");
    iVidThumbMode = TextToInteger(Option("iVidThumbMode"));
    sDefaultDBPath = Option("sDefaultDBPath");
}

void LoadSupportedExts() {
    LoadList("musicsupport", sMusicSupport);
    LoadList("videosupport", sVideoSupport);
    LoadList("photosupport", sPhotoSupport);
}

}  // namespace tavel
