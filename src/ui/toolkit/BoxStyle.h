#pragma once

#include <QProxyStyle>

namespace tavel {

// The desktop's style, but for one thing: on a dark desktop Qt's own style draws the edge of a
// check box as dark as what is around it, so that a box without its tick can't be seen.
class BoxStyle : public QProxyStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace tavel
