#pragma once

#include "platform/Service.h"
#include "ui/toolkit/dialogs/DialogResult.h"
#include "ui/toolkit/dialogs/PrinterState.h"

#include <QColor>
#include <QFont>
#include <array>

class QWidget;

namespace tavel {

// Of each dialog's flags, which are the setting's own, these are heard. The rest asks for what Qt's
// dialogs do anyway or cannot do.

namespace colorFlag {
inline constexpr Long FullOpen = 0x2;  // with all that mixes a colour
inline constexpr Long PreventFullOpen = 0x4;
}  // namespace colorFlag

namespace fontFlag {
inline constexpr Long PrinterFonts = 0x2;
inline constexpr Long Effects = 0x100;  // strikeout and underline may be chosen
inline constexpr Long FixedPitchOnly = 0x4000;
inline constexpr Long ScalableOnly = 0x20000;
inline constexpr Long TrueTypeOnly = 0x40000;
}  // namespace fontFlag

namespace printFlag {
inline constexpr Long Selection = 0x1;  // the range; neither this nor the next: all
inline constexpr Long PageNumbers = 0x2;
inline constexpr Long NoSelection = 0x4;
inline constexpr Long NoPageNumbers = 0x8;
inline constexpr Long Collate = 0x10;
inline constexpr Long ToFile = 0x20;
inline constexpr Long NoWarning = 0x80;  // nothing is said where there is no printer
inline constexpr Long DisableToFile = 0x80000;
inline constexpr Long HideToFile = 0x100000;
}  // namespace printFlag

namespace pageFlag {
inline constexpr Long DisableMargins = 0x10;
inline constexpr Long NoWarning = 0x80;  // nothing is said where there is no printer
inline constexpr Long DisableOrientation = 0x100;
inline constexpr Long DisablePaper = 0x200;
}  // namespace pageFlag

// Why a dialog fails.
inline constexpr Long NoDefaultPrinter = 0x1008;
inline constexpr Long NoSizeAllowed = 0x2002;  // the largest is below the smallest

using CustomColors = std::array<QColor, 16>;

struct ColorRequest {
    QWidget* owner = nullptr;
    QColor color;
    CustomColors custom;
    Long flags = 0;
};

struct ColorAnswer : DialogResult {
    QColor color;
    CustomColors custom;  // what the user has added stays, after a cancel too
};

struct FontRequest {
    QWidget* owner = nullptr;
    QFont font;
    int minSize = 0;  // points, 0: no limit
    int maxSize = 0;
    Long flags = 0;
};

struct FontAnswer : DialogResult {
    QFont font;
};

struct PrintRequest {
    QWidget* owner = nullptr;
    PrinterState printer;
    int fromPage = 1;
    int toPage = 1;  // no smaller
    Long flags = 0;

    bool Has(Long flag) const { return (flags & flag) != 0; }
    bool OffersFile() const { return !Has(printFlag::DisableToFile | printFlag::HideToFile); }
};

struct PrintAnswer : DialogResult {
    PrinterState printer;
    int fromPage = 0;  // of a range of page numbers alone
    int toPage = 0;
    Long flags = 0;  // the range, Collate and ToFile as the user leaves them
};

struct PageRequest {
    QWidget* owner = nullptr;
    PrinterState printer;
    // The smallest that can be set, in the units of the printer's layout; on a page where they are
    // none the printer's own are.
    QMarginsF minimums;
    Long flags = 0;

    bool Has(Long flag) const { return (flags & flag) != 0; }
};

struct PageAnswer : DialogResult {
    PrinterState printer;  // its layout in the same units, with the printer's own smallest margins
};

// The dialogs that no window of the program asks for: the program's drives real ones, a test's
// answers in their place. Each blocks in an event loop of its own.
class CommonDialogs {
  public:
    virtual ~CommonDialogs() = default;

    virtual ColorAnswer PickColor(const ColorRequest& request) = 0;
    virtual FontAnswer PickFont(const FontRequest& request) = 0;
    virtual PrintAnswer PickPrinter(const PrintRequest& request) = 0;
    virtual PageAnswer SetUpPage(const PageRequest& request) = 0;
};

// The real dialogs.
template <>
CommonDialogs* OwnService<CommonDialogs>();

}  // namespace tavel
