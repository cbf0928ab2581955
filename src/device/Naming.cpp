#include "device/Naming.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "platform/Failure.h"

namespace tavel {

std::string PSPPath(std::string_view sFolder) {
    if (oPSPDrive == nullptr) Fail(failure::ObjectNotSet);
    return oPSPDrive->Path().append(sFolder);
}

std::string NextVideoName(const std::string& sFormat) {
    const std::string sFolder = PSPPath(VideoFolder);
    for (Integer n = 1;; n = ToInteger(n + 1)) {
        std::string sName = "M4V1" + PadZeros(std::to_string(n), 4) + "." + sFormat;
        if (!oFSO().FileExists(sFolder + sName)) return sName;
    }
}

}  // namespace tavel
