#include "ui/toolkit/ProgressBar.h"

#include <algorithm>
#include <cmath>

namespace tavel {

namespace {

// Finer than the pixels of any bar, so that the steps cannot be seen.
constexpr int steps = 1000;

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
    setRange(0, steps);
    setTextVisible(false);
    Draw();
}

void ProgressBar::SetMin(float value) {
    m_min = value;
    Draw();
}

void ProgressBar::SetMax(float value) {
    m_max = value;
    Draw();
}

void ProgressBar::SetValue(float value) {
    m_value = value;
    Draw();
}

void ProgressBar::Draw() {
    const float span = m_max - m_min;
    const float part = span > 0 ? std::clamp((m_value - m_min) / span, 0.0F, 1.0F) : 0.0F;
    setValue(static_cast<int>(std::lround(part * steps)));
}

}  // namespace tavel
