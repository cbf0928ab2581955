#include "ui/setup/WatchBox.h"

#include "platform/Failure.h"

namespace tavel {

Integer WatchState(const QCheckBox& box) {
    switch (box.checkState()) {
        case Qt::Unchecked:
            return 0;
        case Qt::Checked:
            return 1;
        default:
            return 2;
    }
}

void SetWatchState(QCheckBox& box, Integer state) {
    switch (state) {
        case 0:
            return box.setCheckState(Qt::Unchecked);
        case 1:
            return box.setCheckState(Qt::Checked);
        case 2:
            return box.setCheckState(Qt::PartiallyChecked);
        default:
            Fail(failure::InvalidPropertyValue);
    }
}

}  // namespace tavel
