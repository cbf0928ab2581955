#include "ui/toolkit/ModalBox.h"

namespace tavel {

void TakeFromOwner(QDialog& box) {
    for (QDialog* over : box.findChildren<QDialog*>())
        if (over->isVisible()) over->close();
    box.setParent(nullptr);  // hides it, which ends its loop
}

}  // namespace tavel
