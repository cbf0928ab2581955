#include "ui/toolkit/ModalBox.h"

namespace tavel {

void TakeFromOwner(QDialog& box) {
    for (QWidget* over : box.findChildren<QWidget*>())
        if (over->isWindow() && over->isVisible()) over->close();
    box.setParent(nullptr);  // hides it, which ends its loop
}

}  // namespace tavel
