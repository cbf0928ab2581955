#include "ui/toolkit/dialogs/Parts.h"

#include <QDialog>

namespace tavel {

void LetBoxesGo(const QWidget& dialog) {
    for (QDialog* box : dialog.findChildren<QDialog*>()) {
        if (!box->isVisible()) continue;
        box->close();
        box->setParent(nullptr);
    }
}

}  // namespace tavel
