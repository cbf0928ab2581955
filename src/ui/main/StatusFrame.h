#pragma once

#include "device/Status.h"

#include <QGroupBox>

class QLabel;

namespace tavel {

// The frame "PSP Status": the connection line, and the bar of two colours with its figures.
class StatusFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit StatusFrame(QWidget* parent);

    void ShowPanel(const StatusPanel& panel);

  private:
    QWidget* m_imgEmpty;
    QWidget* m_imgFull;
    QLabel* m_labPSPStatus;
    QLabel* m_labEmpty;
    QLabel* m_labEmptySpace;
    QLabel* m_labFull;
    QLabel* m_labFullSpace;
};

}  // namespace tavel
