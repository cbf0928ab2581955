#pragma once

#include "ui/support/Modal.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <QFont>
#include <QListView>
#include <QStringList>
#include <QWidget>

namespace tavel::test {

// One call, each of whose arguments a test may change.
struct FontCall {
    QFont CurFont = QFont(QStringLiteral("DejaVu Sans"), 12);
    const QPrinter* PrinterDC = nullptr;
    QWidget* Owner = nullptr;
    Long MinSize = 0;
    Long MaxSize = 0;
    Long flags = 0;
    CDLG dialog;

    bool Run() { return dialog.VBChooseFont(CurFont, PrinterDC, Owner, MinSize, MaxSize, flags); }
};

// The fonts that its box lists.
inline QStringList FamiliesOf(FontCall call) {
    QStringList names;
    CancelNext([&names](QWidget& box) {
        const auto& list = *box.findChild<QListView*>();
        for (int row = 0; row < list.model()->rowCount(); ++row)
            names << list.model()->index(row, 0).data().toString();
    });
    call.Run();
    return names;
}

}  // namespace tavel::test
