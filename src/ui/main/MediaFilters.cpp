#include "ui/main/MediaFilters.h"

#include "core/PublicStuff.h"

namespace tavel {

namespace {

std::string PatternsOf(const std::vector<std::string>& sExtensions) {
    std::string sPatterns;
    for (const std::string& sExtension : sExtensions) sPatterns += "*." + sExtension + ";";
    return sPatterns;
}

}  // namespace

std::string FilterOfMedia() {
    const std::string sPhotos = PatternsOf(sPhotoSupport);
    const std::string sMusic = PatternsOf(sMusicSupport);
    const std::string sVideos = PatternsOf(sVideoSupport);
    return "All Supported Files|" + sPhotos + sMusic + sVideos + "|Photo Files|" + sPhotos +
           "|Music Files|" + sMusic + "|Video Files|" + sVideos;
}

std::string FilterOfPictures() {
    return "Supported Picture Files|" + PatternsOf(sPhotoSupport) + "*.thm;";
}

}  // namespace tavel
