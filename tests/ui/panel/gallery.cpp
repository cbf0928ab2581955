#include "ui/toolkit/panel/xpFrame.h"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <functional>
#include <initializer_list>

// Every theme and every state of the panel on one sheet, for eyes and hands: panels can be dragged
// by their bodies, resized by their grips, collapsed and closed. "--picture FILE" writes the sheet
// and ends.

namespace tavel {

namespace {

using Integers = std::initializer_list<Integer>;

constexpr int columns = 6;
constexpr int panelWidth = 180;
constexpr int panelHeight = 112;
constexpr int gap = 14;

QImage Disc(QColor disc, QColor around) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(around);
    QPainter painter(&image);
    painter.setBrush(disc);
    painter.setPen(disc.darker());
    painter.drawEllipse(2, 2, 11, 11);
    return image;
}

PanelPicture Bitmap() { return PanelPicture(Disc(Qt::yellow, Qt::magenta)); }
PanelPicture Icon() { return PanelPicture(qApp->style()->standardIcon(QStyle::SP_DirIcon)); }

void Custom(xpFrame& panel) {
    panel.HeaderBackColor(0x205020);
    panel.HeaderFadeColor(0x90E0A0);
    panel.HeaderTextColor(0xFFFFFF);
    panel.FooterBackColor(0x90E0A0);
    panel.FooterFadeColor(0x205020);
    panel.FooterTextColor(0x101010);
    panel.ContainerBackColor(0xFFFFFF);
    panel.ContainerFadeColor(0xB0F0C0);
    panel.ContainerBorderColor(0x104010);
    panel.CollapseButtonColor(0x0000C0);
    panel.UseCustomColors(true);
}

class Sheet : public QWidget {
  public:
    Sheet() {
        for (Integer theme = 0; theme < PanelThemeCount; ++theme) {
            Add(QStringLiteral("Theme %1").arg(theme), [&](xpFrame& panel) {
                panel.Appearence(theme);
                panel.ContainerShapeStyle(theme % 2);
                panel.HeaderPicture(theme % 3 == 0 ? Icon() : Bitmap());
            });
        }
        AddColors();
        AddBars();
        AddShapes();
        AddStyles();
        AddAlignments();
        const int rows = (m_count + columns - 1) / columns;
        setMinimumSize(gap + columns * (panelWidth + gap), gap + rows * (panelHeight + gap));
    }

  private:
    xpFrame& Place(const QString& name) {
        auto* panel = new xpFrame(this);
        panel->setGeometry(gap + m_count % columns * (panelWidth + gap),
                           gap + m_count / columns * (panelHeight + gap), panelWidth, panelHeight);
        panel->setObjectName(name);
        panel->HeaderText(name);
        ++m_count;
        return *panel;
    }

    xpFrame& Add(const QString& name, const std::function<void(xpFrame&)>& change) {
        xpFrame& panel = Place(name);
        panel.HeaderTextAlign(1);
        panel.FooterText(QStringLiteral("Footer"));
        panel.FooterTextAlign(1);
        panel.Expandable(true);
        panel.Closeable(true);
        panel.ContainerMoveable(true);
        panel.ContainerResizable(true);
        change(panel);
        return panel;
    }

    void AddColors() {
        Add(QStringLiteral("Custom colors"), Custom);
        Add(QStringLiteral("Custom by default"),
            [](xpFrame& panel) { panel.UseCustomColors(true); });
        Add(QStringLiteral("System colors"), [](xpFrame& panel) {
            Custom(panel);
            panel.HeaderBackColor(0x8000000D);
            panel.HeaderFadeColor(0x8000000F);
            panel.HeaderTextColor(0x8000000E);
            panel.FooterBackColor(0x8000000F);
            panel.FooterFadeColor(0x80000005);
            panel.FooterTextColor(0x80000008);
            panel.ContainerBorderColor(0x80000012);
            panel.CollapseButtonColor(0x80000012);
        });
        for (const Integer style : Integers{0, 1}) {
            Add(QStringLiteral("Fill style %1").arg(style), [&](xpFrame& panel) {
                Custom(panel);
                panel.HeaderFillStyle(style);
                panel.FooterFillStyle(style);
            });
        }
        Add(QStringLiteral("Disabled"), [](xpFrame& panel) {
            AddChildren(panel);
            panel.enabled(false);
        });
    }

    void AddBars() {
        for (const Integer size : Integers{0, 1, 2, 3}) {
            Add(QStringLiteral("Bars of size %1").arg(size), [&](xpFrame& panel) {
                panel.HeaderSize(size);
                panel.FooterSize(static_cast<Integer>(size % 2));
                panel.HeaderPicture(Bitmap());
            });
        }
        Add(QStringLiteral("No header"), [](xpFrame& panel) { panel.HeaderVisible(false); });
        Add(QStringLiteral("No footer"), [](xpFrame& panel) { panel.FooterVisible(false); });
        Add(QStringLiteral("Collapsed"), [](xpFrame& panel) { panel.Collapse(); });
        Add(QStringLiteral("Chevron alone"), [](xpFrame& panel) { panel.Closeable(false); });
        Add(QStringLiteral("Cross alone"), [](xpFrame& panel) { panel.Expandable(false); });
        Add(QStringLiteral("A header's text that is far too long for it"),
            [](xpFrame& panel) { panel.HeaderPicture(Icon()); });
        Place(QStringLiteral("A new panel's\ntext breaks lines")).HeaderSize(2);
        Add(QStringLiteral("&Marked letter"),
            [](xpFrame& panel) { panel.FooterText(QStringLiteral("This && that")); });
    }

    void AddShapes() {
        for (const Integer radius : Integers{8, 20, 60, 400}) {
            Add(QStringLiteral("Corners of %1").arg(radius), [&](xpFrame& panel) {
                panel.Appearence(2);
                panel.ContainerShapeStyle(1);
                panel.ContainerCornerRadius(radius);
            });
        }
        for (const Integer style : Integers{1, 2, 3, 4, 5}) {
            Add(QStringLiteral("Pen %1").arg(style), [&](xpFrame& panel) {
                panel.Appearence(3);
                panel.ContainerBorderStyle(style);
                panel.ContainerShapeStyle(style % 2);
            });
        }
        Add(QStringLiteral("Pictures"), [](xpFrame& panel) {
            panel.HeaderPicture(Icon());
            panel.ContainerPicture(Bitmap());
        });
        Add(QStringLiteral("Pictures hidden"), [](xpFrame& panel) {
            panel.HeaderPicture(Icon());
            panel.ContainerPicture(Bitmap());
            panel.HeaderPictureVisible(false);
            panel.ContainerPictureVisible(false);
        });
        Add(QStringLiteral("Large pictures"), [](xpFrame& panel) {
            panel.HeaderSize(2);
            panel.HeaderPicture(Bitmap());
            panel.HeaderPictureSize(32);
            panel.ContainerPicture(Icon());
            panel.ContainerPictureSize(48);
            panel.ContainerPictureBufferLeft(20);
        });
    }

    void AddStyles() {
        Add(QStringLiteral("Classic"), [](xpFrame& panel) { panel.ClassicXPStyle(true); });
        Add(QStringLiteral("Classic, children"), [](xpFrame& panel) {
            panel.ClassicXPStyle(true);
            AddChildren(panel);
        });
        Add(QStringLiteral("Classic, dashed"), [](xpFrame& panel) {
            panel.ClassicXPStyle(true);
            panel.ContainerBorderStyle(1);
        });
        Add(QStringLiteral("Children"), AddChildren);
        Add(QStringLiteral("To the front"), [](xpFrame& panel) { panel.ZOrderOnFocus(true); });
        xpFrame& stored = Add(QStringLiteral("From an empty store"), [](xpFrame&) {});
        stored.ReadProperties(MemoryPropertyBag());
    }

    void AddAlignments() {
        static constexpr const char* names[] = {"Left top",   "Left",   "Left bottom",
                                                "Right top",  "Right",  "Right bottom",
                                                "Centre top", "Centre", "Centre bottom"};
        for (Integer align = 0; align < 9; ++align) {
            Add(QLatin1String(names[align]), [&](xpFrame& panel) {
                panel.HeaderSize(2);
                panel.FooterSize(1);
                panel.HeaderTextAlign(align);
                panel.FooterTextAlign(align);
                panel.Appearence(6);
            });
        }
    }

    static void AddChildren(xpFrame& panel) {
        auto* box = new QCheckBox(QStringLiteral("A check box"), &panel);
        box->move(12, 34);
        auto* button = new QPushButton(QStringLiteral("A button"), &panel);
        button->move(12, 58);
    }

    int m_count = 0;
};

QPalette DarkPalette() {
    QPalette dark(QColor(45, 45, 48), QColor(37, 37, 38));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Highlight, QColor(20, 90, 150));
    return dark;
}

int Run(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption picture(QStringLiteral("picture"), QStringLiteral("Writes the sheet."),
                                     QStringLiteral("file"));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("A dark desktop."));
    parser.addOptions({picture, dark});
    parser.addHelpOption();
    parser.process(application);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (parser.isSet(dark)) QApplication::setPalette(DarkPalette());

    auto* area = new QScrollArea;
    area->setWidget(new Sheet);

    QWidget window;
    window.setWindowTitle(QStringLiteral("Panels"));
    auto* show = new QPushButton(QStringLiteral("Show the closed ones again"));
    QObject::connect(show, &QPushButton::clicked, [area] {
        for (xpFrame* panel : area->findChildren<xpFrame*>()) panel->showMe();
    });
    auto* putBack = new QPushButton(QStringLiteral("Put all back as it was"));
    QObject::connect(putBack, &QPushButton::clicked, [area] {
        area->setWidget(new Sheet);
        area->widget()->show();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(show);
    buttons->addWidget(putBack);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(&window);
    layout->addLayout(buttons);
    layout->addWidget(area);
    if (parser.isSet(picture)) return area->widget()->grab().save(parser.value(picture)) ? 0 : 1;
    window.resize(window.screen()->availableSize().boundedTo(QSize(1240, 900)));
    window.show();
    return QApplication::exec();
}

}  // namespace

}  // namespace tavel

int main(int argc, char** argv) { return tavel::Run(argc, argv); }
