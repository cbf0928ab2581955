#include "platform/HostBoxes.h"
#include "ui/toolkit/ModalBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/dialogs/ColorDialog.h"
#include "ui/toolkit/dialogs/FontDialog.h"
#include "ui/toolkit/dialogs/PageSetupDialog.h"
#include "ui/toolkit/dialogs/PrintDialog.h"
#include "ui/toolkit/dialogs/SharedColors.h"

#include <QObject>
#include <QPrinter>
#include <QPrinterInfo>

namespace tavel {

namespace {

bool HasPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

// The host's own boxes print into a file whose name nobody learns, and need a printer to set up a
// page.
bool AreHosts() { return Service<HostBoxes>::Get().AreThere(); }

class RealCommonDialogs : public CommonDialogs {
  public:
    ColorAnswer PickColor(const ColorRequest& request) override {
        const SharedColors shared;
        // Qt has one set for all its dialogs, one that may stand below this included.
        const CustomColors before = ColorDialog::Custom();
        Modal<ColorDialog> box(request);
        ColorAnswer answer;
        if (box.Run() == QDialog::Accepted) {
            answer.result = 1;
            answer.color = box->selectedColor();
        }
        answer.custom = ColorDialog::Custom();
        ColorDialog::SetCustom(before);
        return answer;
    }

    FontAnswer PickFont(const FontRequest& request) override {
        FontAnswer answer;
        if (request.maxSize != 0 && request.maxSize < request.minSize) {
            answer.error = NoSizeAllowed;
            return answer;
        }
        Modal<FontDialog> box(request);
        if (box.Run() != QDialog::Accepted) return answer;
        answer.result = 1;
        answer.font = box->Font();
        return answer;
    }

    PrintAnswer PickPrinter(const PrintRequest& request) override {
        PrintRequest asked = request;
        if (AreHosts()) asked.flags |= printFlag::DisableToFile;
        if (!asked.OffersFile() && !HasPrinter())
            return WithoutPrinter<PrintAnswer>(!request.Has(printFlag::NoWarning));
        QPrinter printer(QPrinter::HighResolution);
        Modal<PrintDialog> box(asked, printer);
        return box.Run() == QDialog::Accepted ? box->Answer() : PrintAnswer();
    }

    PageAnswer SetUpPage(const PageRequest& request) override {
        if (AreHosts() && !HasPrinter())
            return WithoutPrinter<PageAnswer>(!request.Has(pageFlag::NoWarning));
        QPrinter printer(QPrinter::HighResolution);
        Modal<PageSetupDialog> box(request, printer);
        return box.Run() == QDialog::Accepted ? box->Answer() : PageAnswer();
    }

  private:
    template <class Answer>
    static Answer WithoutPrinter(bool warn) {
        if (warn) MsgBox(QObject::tr("There is no printer."));
        Answer failed;
        failed.error = NoDefaultPrinter;
        return failed;
    }
};

}  // namespace

template <>
CommonDialogs* OwnService<CommonDialogs>() {
    static RealCommonDialogs real;
    return &real;
}

}  // namespace tavel
