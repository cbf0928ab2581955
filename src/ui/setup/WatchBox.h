#pragma once

#include "platform/Numbers.h"

#include <QCheckBox>

namespace tavel {

// A check box that may be grey, as long as nobody has decided; a click makes it clear or checked.
class WatchBox : public QCheckBox {
    Q_OBJECT

  public:
    using QCheckBox::QCheckBox;

  protected:
    void nextCheckState() override {
        setCheckState(checkState() == Qt::Unchecked ? Qt::Checked : Qt::Unchecked);
    }
};

// The states as they are stored: 0 clear, 1 checked, 2 grey. Any other number fails with 380.
Integer WatchState(const QCheckBox& box);
void SetWatchState(QCheckBox& box, Integer state);

}  // namespace tavel
