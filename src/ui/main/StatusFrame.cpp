#include "ui/main/StatusFrame.h"

#include "ui/main/MainLayout.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QLabel>
#include <QPainter>
#include <cmath>

namespace tavel {

namespace {

constexpr int BarTop = 240;
constexpr int BarHeight = 390;
constexpr int SpanRight = 6420;

// A vertical fade from a colour at the bottom to black at the top.
class Fade : public QWidget {
  public:
    Fade(const char* name, const QColor& color, QWidget* parent) : QWidget(parent), m_color(color) {
        setObjectName(QLatin1String(name));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QLinearGradient fade(0, 0, 0, height());
        fade.setColorAt(0, Qt::black);
        fade.setColorAt(1, m_color);
        QPainter(this).fillRect(rect(), fade);
    }

  private:
    QColor m_color;
};

QLabel* AddLabel(const char* name, const char* role, const Box& box, Qt::Alignment alignment,
                 QWidget* parent) {
    auto* label = new ElidedLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setAccessibleDescription(QLatin1String(role));
    label->setAlignment(alignment);
    Place(*label, box);
    return label;
}

// Both ends become pixels by themselves, so that the free part always ends where the span does.
void PlaceInBar(QWidget& part, float left, float width) {
    const int begin = Pixels(static_cast<int>(std::lround(left)));
    const int end = Pixels(static_cast<int>(std::lround(left + width)));
    part.setGeometry(begin, Pixels(BarTop), end - begin, Pixels(BarHeight));
}

}  // namespace

StatusFrame::StatusFrame(QWidget* parent)
    : QGroupBox(tr("PSP Status"), parent),
      m_imgEmpty(new Fade("imgEmpty", QColor(0, 255, 0), this)),
      m_imgFull(new Fade("imgFull", QColor(255, 0, 0), this)),
      m_labPSPStatus(AddLabel("labPSPStatus", "PSP status", {1620, 690, 3300, 540},
                              Qt::AlignHCenter | Qt::AlignVCenter, this)),
      m_labEmpty(AddLabel("labEmpty", "Free percent", {SpanRight - 1650, 675, 1650, 270},
                          Qt::AlignRight | Qt::AlignVCenter, this)),
      m_labEmptySpace(AddLabel("labEmptySpace", "Free space", {SpanRight - 1500, 960, 1500, 270},
                               Qt::AlignRight | Qt::AlignVCenter, this)),
      m_labFull(AddLabel("labFull", "Used percent", {120, 675, 1650, 270},
                         Qt::AlignLeft | Qt::AlignVCenter, this)),
      m_labFullSpace(AddLabel("labFullSpace", "Used space", {120, 960, 1500, 270},
                              Qt::AlignLeft | Qt::AlignVCenter, this)) {
    setObjectName(QStringLiteral("Frame1"));
    setAccessibleName(title());
    // The line of the frame runs through its title, so that the bar stands clear of it.
    setStyleSheet(
        QStringLiteral(
            "QGroupBox { border: 1px solid palette(mid); border-radius: 3px; margin-top: %1px; }"
            "QGroupBox::title { subcontrol-origin: margin; left: %1px; padding: 0 3px; }")
            .arg(Pixels(120)));
    m_imgEmpty->setAccessibleName(QStringLiteral("Free part of the memory stick"));
    m_imgFull->setAccessibleName(QStringLiteral("Used part of the memory stick"));
    SetPoints(*m_labPSPStatus, 13.5);
}

void StatusFrame::ShowPanel(const StatusPanel& panel) {
    PlaceInBar(*m_imgEmpty, panel.imgEmptyLeft, panel.imgEmptyWidth);
    PlaceInBar(*m_imgFull, panel.imgFullLeft, panel.imgFullWidth);
    m_labPSPStatus->setText(ToQString(panel.labPSPStatus));
    m_labEmpty->setText(ToQString(panel.labEmpty));
    m_labEmptySpace->setText(ToQString(panel.labEmptySpace));
    m_labFull->setText(ToQString(panel.labFull));
    m_labFullSpace->setText(ToQString(panel.labFullSpace));
    m_imgFull->setVisible(panel.bImgFullVisible);
    for (QWidget* figure : {static_cast<QWidget*>(m_labEmpty), static_cast<QWidget*>(m_labFull),
                            static_cast<QWidget*>(m_labEmptySpace),
                            static_cast<QWidget*>(m_labFullSpace), m_imgEmpty}) {
        figure->setVisible(panel.bFiguresVisible);
    }
}

}  // namespace tavel
