#pragma once

#include <QIcon>
#include <QWidget>

namespace tavel {

// The program's banner, which fills the widget at any scale.
class Banner : public QWidget {
    Q_OBJECT

  public:
    explicit Banner(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon m_picture;
};

}  // namespace tavel
