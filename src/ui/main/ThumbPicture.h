#pragma once

#include <QLabel>
#include <string>

namespace tavel {

// The place of a thumbnail, which any picture is stretched to.
class ThumbPicture : public QLabel {
    Q_OBJECT

  public:
    explicit ThumbPicture(QWidget* parent);

  Q_SIGNALS:
    void PointerMoved();

  protected:
    void mouseMoveEvent(QMouseEvent* event) override;
};

// What stands for a video without a thumbnail, and for several videos with different ones.
std::string NoThumbFile();
std::string MultiThumbFile();

// The picture in a file, told by its content. Fails as the file service does, or with 481 when it
// is none.
QPixmap LoadPicture(const std::string& sPath);

}  // namespace tavel
