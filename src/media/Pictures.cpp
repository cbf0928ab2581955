#include "media/Pictures.h"

#include "core/PublicStuff.h"
#include "media/PictureHeaders.h"
#include "platform/Failure.h"

namespace tavel {

PictureSize SizeOfPicture(std::string_view sPath) {
    Long error = 0;
    const auto file = oFSO().OpenRaw(sPath, RawMode::Read, error);
    if (!file) return {};
    try {
        FileBytes bytes(*file);
        return SizeByContent(bytes);
    } catch (const Failure&) {
        return {};  // a stick that goes away leaves a picture that can't be read, like any other
    }
}

}  // namespace tavel
