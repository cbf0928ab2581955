#pragma once

#include <QLabel>

namespace tavel {

// The caption of a panel in classic style, at the upper left over its frame, which it interrupts
// as the caption of a group box does. It lies over the whole panel and lets the mouse through.
class InnerLabel : public QLabel {
    Q_OBJECT

  public:
    explicit InnerLabel(QWidget& panel);

    void SetBackColor(const QColor& color);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor m_backColor;
};

}  // namespace tavel
