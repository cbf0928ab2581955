#pragma once

#include <QLabel>

namespace tavel {

// A label for a text of any length, a path above all: what does not fit is left out in its middle
// and shown as a tip. Its text is shown in one line and never widens the window.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QString Shown() const;
    bool Fits() const;
};

}  // namespace tavel
