#include "ui/toolkit/dialogs/CDLG.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <algorithm>

namespace tavel {

namespace {

constexpr Long screenFonts = 0x1;
constexpr Long initToFont = 0x40;
constexpr Long limitSize = 0x2000;
constexpr Long hookAndTemplates = 0x8 | 0x10 | 0x20;

}  // namespace

bool CDLG::VBChooseFont(QFont& CurFont, const QPrinter* PrinterDC, QWidget* Owner, Long MinSize,
                        Long MaxSize, Long flags, bool, EventSink*) {
    Begin();
    FontRequest request;
    request.owner = Owner;
    request.font = CurFont;
    request.minSize = std::max<Long>(MinSize, 0);
    request.maxSize = std::max<Long>(MaxSize, 0);
    request.flags = (flags & ~hookAndTemplates) | initToFont |
                    (PrinterDC != nullptr ? fontFlag::PrinterFonts : screenFonts) |
                    (MinSize > 0 || MaxSize > 0 ? limitSize : 0);

    const FontAnswer answer = Service<CommonDialogs>::Get().PickFont(request);
    if (!End(answer)) return false;
    CurFont = answer.font;
    return true;
}

}  // namespace tavel
