#include "ui/main/ThumbPicture.h"

#include "core/UsefulFunctions.h"
#include "platform/Failure.h"
#include "platform/FileService.h"

namespace tavel {

namespace {

std::string UIFile(const char* name) { return GetAppPath() + "UI\\" + name; }

}  // namespace

ThumbPicture::ThumbPicture(QWidget* parent) : QLabel(parent) {
    setAccessibleName(QStringLiteral("Thumbnail"));
    setScaledContents(true);
    setMouseTracking(true);
}

void ThumbPicture::mouseMoveEvent(QMouseEvent*) { Q_EMIT PointerMoved(); }

std::string NoThumbFile() { return UIFile("NoThumb.bmp"); }

std::string MultiThumbFile() { return UIFile("multiThumb.bmp"); }

QPixmap LoadPicture(const std::string& sPath) {
    const std::string bytes = oFSO().ReadWhole(sPath);
    QPixmap picture;
    if (!picture.loadFromData(QByteArray::fromStdString(bytes))) Fail(failure::InvalidPicture);
    return picture;
}

}  // namespace tavel
