#pragma once

#include "platform/Numbers.h"

#include <string>
#include <string_view>

class QWidget;

namespace tavel {

// The common dialogs as plain calls: all arguments at once, results in the arguments themselves.
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

    // Characters that the file name and the title have room for. A selection that does not fit is
    // answered as a cancel is.
    static constexpr int MaxFile = 460;

    // Lets the user choose one or more existing files. False on cancel and on failure, which look
    // alike: Filename, FileTitle and Filter empty, flags 0, FilterIndex -1.
    //
    // Filename: in, the initial name or path; out, all MaxFile characters: the path, or the folder
    // and the names with a NUL behind each, and NULs to the end. FileTitle: the chosen name without
    // its folder. Filter: in, descriptions and patterns, each parted by "|" or ":"; out, the chosen
    // pair, joined by a NUL. FilterIndex counts from 1. Owner may be null. Hook and EventSink have
    // no effect. Fails with 5 when Filename or FileTitle is longer than MaxFile.
    bool VBGetOpenFileName(std::string& Filename, std::string& FileTitle, bool FileMustExist,
                           bool MultiSelect, bool& ReadOnly, bool HideReadOnly, std::string& Filter,
                           Long& FilterIndex, const std::string& InitDir,
                           const std::string& DlgTitle, const std::string& DefaultExt,
                           QWidget* Owner, Long& flags, bool Hook = false,
                           EventSink* Sink = nullptr);

    // The dialog procedure: passes a dialog's messages on to the sink. The result goes back to the
    // dialog; for ConfirmOK its result word, the property "DialogResult" of hDlg, tells the same.
    Long DialogHook(QWidget& hDlg, Long message, Long wParam, const NotifyHeader* lParam);

    Long APIReturn() const { return m_apiReturn; }          // 0 for cancel or failure
    Long ExtendedError() const { return m_extendedError; }  // until the next call

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
    Long m_apiReturn = 0;
    Long m_extendedError = 0;
};

}  // namespace tavel
