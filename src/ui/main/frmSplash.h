#pragma once

#include <QPixmap>
#include <QWidget>

namespace tavel {

// The picture that is on the screen while the library loads.
class frmSplash : public QWidget {
    Q_OBJECT

  public:
    frmSplash();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPixmap m_picture;
};

}  // namespace tavel
