#pragma once

#include "platform/Numbers.h"
#include "ui/toolkit/dialogs/DialogResult.h"
#include "ui/toolkit/dialogs/PrinterState.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

class QFont;
class QWidget;

namespace tavel {

// The common dialogs as plain calls: all arguments at once, results in the arguments themselves. A
// call is true when the user has chosen. It blocks in an event loop of its own, in which timers go
// on. Its dialog belongs to Owner, which may be null. `flags` are further flags of the setting's
// dialog, or-ed with what the other arguments say; those of hooks, templates and smallest margins
// are always cleared. Hook and Sink have no effect.
class CDLG {
  public:
    // Receiver of what DialogHook tells.
    class EventSink {
      public:
        virtual ~EventSink() = default;
        virtual void InitDialog(QWidget& hDlg) = 0;
        virtual void DialogClose() = 0;
        virtual void TypeChange(QWidget& hDlg) = 0;
        virtual bool ConfirmOK() = 0;  // false keeps the dialog open
        virtual void FolderChange(QWidget& hDlg) = 0;
        virtual void FileChange(QWidget& hDlg) = 0;
    };

    // The header of a dialog's notification, whose third field is its code.
    struct NotifyHeader {
        Long hwndFrom = 0;
        Long idFrom = 0;
        Long code = 0;
    };

    enum class Range { All = 0, Selection = 1, PageNumbers = 2 };
    enum class PageUnits { Inches, Millimeters };

    // Characters that the file name and the title have room for. A selection that does not fit is
    // answered as a cancel is.
    static constexpr int MaxFile = 460;

    // The dialog procedure: passes a dialog's messages on to the sink. The result goes back to the
    // dialog; for ConfirmOK its result word, the property "DialogResult" of hDlg, tells the same.
    Long DialogHook(QWidget& hDlg, Long message, Long wParam, const NotifyHeader* lParam);

    // Both hold until the next call of a dialog. APIReturn is 0 after a cancel and after a failure;
    // ExtendedError tells the reason of a result that is neither 0 nor 1, and so of no usual
    // failure.
    Long APIReturn() const { return m_apiReturn; }
    Long ExtendedError() const { return m_extendedError; }

    // Lets the user choose a file, or more with MultiSelect, which with either flag is there. False
    // on cancel and on failure, which look alike: Filename, FileTitle and Filter empty, flags 0,
    // FilterIndex -1.
    //
    // Filename: in, the initial name or path; out, all MaxFile characters: the path, or the folder
    // and the names with a NUL behind each, and NULs to the end. FileTitle: the chosen name without
    // its folder. ReadOnly is set when the user ticks it, and never taken back. Filter: in,
    // descriptions and patterns, each parted by "|" or ":"; out, the chosen pair, joined by a NUL.
    // FilterIndex counts from 1. Fails with 5 when Filename or FileTitle is longer than MaxFile.
    bool VBGetOpenFileName(std::string& Filename, std::string& FileTitle, bool FileMustExist,
                           bool MultiSelect, bool& ReadOnly, bool HideReadOnly, std::string& Filter,
                           Long& FilterIndex, const std::string& InitDir,
                           const std::string& DlgTitle, const std::string& DefaultExt,
                           QWidget* Owner, Long& flags, bool Hook = false,
                           EventSink* Sink = nullptr);

    // Lets the user name one file, in a folder that is there, to be written by the caller. With
    // OverWritePrompt a name that is taken is asked about. Arguments, results and limits are those
    // of VBGetOpenFileName.
    bool VBGetSaveFileName(std::string& Filename, std::string& FileTitle, bool OverWritePrompt,
                           std::string& Filter, Long& FilterIndex, const std::string& InitDir,
                           const std::string& DlgTitle, const std::string& DefaultExt,
                           QWidget* Owner, Long& flags, bool Hook = false,
                           EventSink* Sink = nullptr);

    // The name in a path without its folder, as a title shows it. Empty for what cannot be a
    // file's path (nothing, "*" or "?" in it, a separator or a colon at its end) and for a name
    // that does not fit MaxFile characters with its NUL.
    static std::string VBGetFileTitle(std::string_view sFile);

    // Lets the user choose a colour, 0x00BBGGRR. Color: in, the colour to begin with, which may be
    // a system colour (0x800000nn) and is white after an earlier cancel; out, the chosen one, or
    // -1. FullOpen shows at once what mixes a colour, DisableFullOpen keeps it from being opened.
    // AnyColor says that colours need not be pure, which no display of today cares for.
    bool VBChooseColor(Long& Color, bool AnyColor, bool FullOpen, bool DisableFullOpen,
                       QWidget* Owner, Long flags = 0, bool Hook = false,
                       EventSink* Sink = nullptr);

    // The sixteen colours that the user keeps in the colour dialog, 0 to 15, each 0x00BBGGRR. They
    // begin as the system colours of these numbers. With any other index the first gives -1 and
    // the second does nothing.
    Long CustomColor(Long iValue);
    void CustomColor(Long iValue, Long color);

    // Lets the user choose a font, which CurFont is before and after; it stays as it is after a
    // cancel. A size outside of MinSize to MaxSize, in points, is not taken; 0 or less is no limit,
    // and the call fails when MaxSize is below MinSize. With a PrinterDC only fonts that a printer
    // can have at any size are listed. The flag 0x100 lets the user choose underline and strikeout,
    // 0x4000 lists fonts of one width alone.
    bool VBChooseFont(QFont& CurFont, const QPrinter* PrinterDC, QWidget* Owner, Long MinSize = 0,
                      Long MaxSize = 0, Long flags = 0, bool Hook = false,
                      EventSink* Sink = nullptr);

    // Lets the user choose a printer and what goes to it. All arguments stay as they are after a
    // cancel and after a failure. PrintRange, FromPage, ToPage (1 to 65535, brought into that; of
    // the range PageNumbers alone), Copies (from 1) and Collate are what the dialog begins with and
    // what the user leaves there. Pages or a selection can be disabled. PrintToFile, a PDF whose
    // name the dialog asks for, is offered with ShowPrintToFile and without DisablePrintToFile,
    // but never where the dialog is the system's own. Where there is no printer and no file is
    // offered, the call fails, and says so in a message unless PreventWarning is set.
    //
    // Printer may be null. On success it gets the device or the file, the copies, and the paper,
    // orientation, margins and quality of the page, its colours, sides and order. Painting on it
    // then prints.
    bool VBPrintDlg(Range& PrintRange, bool DisablePageNumbers, Long& FromPage, Long& ToPage,
                    bool DisableSelection, Integer& Copies, bool ShowPrintToFile,
                    bool DisablePrintToFile, bool& PrintToFile, bool& Collate, bool PreventWarning,
                    QWidget* Owner, QPrinter* Printer, Long flags = 0, bool Hook = false,
                    EventSink* Sink = nullptr);

    // Lets the user set up the page, which the printer of the next VBPrintDlg of this object has
    // then. Printer, which may be null, has it at once, and its pages go where they went. All
    // arguments stay as they are after a cancel and after a failure: the system's own dialog needs
    // a printer, and where there is none a message says so unless `flags` has 0x80.
    //
    // Margins are in Units; with all four 0 the page has those of the last call, or the printer's
    // own. The Min margins are the smallest that the user can set; with all four 0, and on a
    // paper of which they leave nothing, they are the printer's own for it, and one below 0 is 0. A
    // margin below its minimum begins at it, one beyond the page at its edge or the one opposite,
    // and none comes back smaller than the printer can have it. PaperSize and Orientation have the
    // setting's numbers (1 Letter, 8 A3, 9 A4, ...; 1 upright, 2 across), PrintQuality is dots per
    // inch, no more than 32767; 0, or a number that stands for nothing, is as it was at the last
    // call or the printer's own. Out, a paper of no number is 0 and one of the user's own size 256.
    // DisablePrinter takes the choice of a printer away where the dialog offers one, as Qt's does
    // not.
    bool VBPageSetupDlg2(bool DisableMargins, bool DisableOrientation, bool DisablePaper,
                         bool DisablePrinter, double& LeftMargin, double MinLeftMargin,
                         double& RightMargin, double MinRightMargin, double& TopMargin,
                         double MinTopMargin, double& BottomMargin, double MinBottomMargin,
                         Long& PaperSize, Long& Orientation, Long& PrintQuality, PageUnits Units,
                         QPrinter* Printer, QWidget* Owner = nullptr, Long flags = 0,
                         bool Hook = false, EventSink* Sink = nullptr);

    // The same with whole margins, which come back rounded to nearest, halves to even.
    bool VBPageSetupDlg(bool DisableMargins, bool DisableOrientation, bool DisablePaper,
                        bool DisablePrinter, Long& LeftMargin, Long MinLeftMargin,
                        Long& RightMargin, Long MinRightMargin, Long& TopMargin, Long MinTopMargin,
                        Long& BottomMargin, Long MinBottomMargin, Long& PaperSize,
                        Long& Orientation, Long& PrintQuality, PageUnits Units, QPrinter* Printer,
                        QWidget* Owner = nullptr, Long flags = 0, bool Hook = false,
                        EventSink* Sink = nullptr);

  protected:
    // The description and pattern of a filter (from 1) in its dialog form, joined by a NUL; empty
    // when there is none.
    static std::string FilterPiece(std::string_view text, Long index);

    // The text up to its first NUL.
    static std::string StrFromZ(std::string_view text);

    // Raises a dialog's error code: a run-time number below 1001, else one of the class's own.
    [[noreturn]] static void RaiseDialogError(Long code);

    EventSink* m_eventSink = nullptr;

  private:
    struct FileArguments;
    bool AskForFiles(const FileArguments& arguments, bool saving, Long word);
    void InitCustomColors();
    PrinterState& KeptPrinter();

    // Each call of a dialog stands between these two. The second is whether the user has chosen.
    void Begin();
    bool End(const DialogResult& answer);

    Long m_apiReturn = 0;
    Long m_extendedError = 0;
    std::array<Long, 16> m_customColors{};
    bool m_customColorsReady = false;
    std::optional<PrinterState> m_printer;  // kept between print and page setup calls
};

}  // namespace tavel
