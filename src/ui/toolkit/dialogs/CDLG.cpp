#include "ui/toolkit/dialogs/CDLG.h"

#include "core/MessageBoxes.h"
#include "platform/Failure.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace tavel {

void CDLG::Begin() {
    m_apiReturn = 0;
    m_extendedError = 0;
}

bool CDLG::End(const DialogResult& answer) {
    m_apiReturn = answer.result;
    m_eventSink = nullptr;
    if (m_apiReturn != 0 && m_apiReturn != 1) m_extendedError = answer.error;
    return m_apiReturn == 1;
}

Long CDLG::DialogHook(QWidget& hDlg, Long message, Long, const NotifyHeader* lParam) {
    constexpr Long initDialog = 272;
    constexpr Long dialogClose = 130;
    constexpr Long notify = 78;
    constexpr Long typeChange = -607;
    constexpr Long confirmOK = -606;
    constexpr Long folderChange = -603;
    constexpr Long fileChange = -602;

    if (m_eventSink == nullptr) return 0;
    if (message == initDialog) m_eventSink->InitDialog(hDlg);
    if (message == dialogClose) m_eventSink->DialogClose();
    if (message != notify || lParam == nullptr) return 0;

    switch (lParam->code) {
        case typeChange:
            m_eventSink->TypeChange(hDlg);
            break;
        case folderChange:
            m_eventSink->FolderChange(hDlg);
            break;
        case fileChange:
            m_eventSink->FileChange(hDlg);
            break;
        case confirmOK: {
            const QPointer<QWidget> alive(&hDlg);
            const Long result = m_eventSink->ConfirmOK() ? 0 : 1;
            if (!alive.isNull()) alive->setProperty("DialogResult", result);
            return result;
        }
        default:
            break;
    }
    return 0;
}

void CDLG::RaiseDialogError(Long code) {
    constexpr Long firstOfTheClass = 1001;
    constexpr Long classErrors = static_cast<Long>(0x80040000);
    const std::string program = ProgramTitle;
    if (code < firstOfTheClass)
        throw Failure(code, std::string(FailureText(code)), program + ".VBError");
    const Long number = code | classErrors;
    throw Failure(number, std::string(FailureText(number)), program + ".CommonDialog");
}

}  // namespace tavel
