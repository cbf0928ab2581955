#pragma once

#include "device/DeviceWindows.h"

#include <QProgressBar>

namespace tavel {

// A progress bar over single-precision numbers. It paints by itself, with no event loop running,
// whenever what it shows changes, so that its value may be set a million times.
class ProgressBar : public QProgressBar, public ProgressBarView {
    Q_OBJECT

  public:
    explicit ProgressBar(QWidget* parent = nullptr);

    void SetMin(float value) override;
    void SetMax(float value) override;
    void SetValue(float value) override;
    float Value() const override { return m_value; }  // as it was set, inside the range or not
    void Repaint() override {}  // every setter has painted what changed already

  private:
    void Draw();

    float m_min = 0;
    float m_max = 100;
    float m_value = 0;
};

}  // namespace tavel
