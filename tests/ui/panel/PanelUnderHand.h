#pragma once

#include "ui/support/Windows.h"
#include "ui/toolkit/panel/xpFrame.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tavel::test {

// What a panel's host was asked for, in order. It does what a window would.
class RecordingHost : public PanelHost {
  public:
    QFont AmbientFont() const override { return QFont(QStringLiteral("Courier"), 17); }
    QString DisplayName() const override { return QStringLiteral("xpFrame3"); }
    void visible(bool value) override {
        calls.emplace_back(value ? "visible true" : "visible false");
        if (panel != nullptr) panel->setVisible(value);
    }
    void zorder(int position) override {
        calls.push_back("zorder " + std::to_string(position));
        if (onZOrder) onZOrder();
    }
    void PropertyChanged(std::string_view sName) override {
        changes.emplace_back(sName);
        if (onChange) onChange();
    }

    QWidget* panel = nullptr;
    std::vector<std::string> calls;
    std::vector<std::string> changes;
    std::function<void()> onChange;
    std::function<void()> onZOrder;
};

inline QImage Square() {
    QImage square(8, 8, QImage::Format_RGB32);
    square.fill(Qt::green);
    square.setPixelColor(0, 0, Qt::black);
    return square;
}

// Counts how often a widget is painted.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int Taken() {
        RunEvents();
        return std::exchange(m_count, 0);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

  private:
    int m_count = 0;
};

// Acts when a widget gets an event of a kind.
class On : public QObject {
  public:
    On(QEvent::Type type, QWidget& widget, std::function<void()> act)
        : m_type(type), m_act(std::move(act)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == m_type) m_act();
        return false;
    }

  private:
    QEvent::Type m_type;
    std::function<void()> m_act;
};

// A panel at (50, 40) in a window, 300 pixels wide and 200 high, and a pointer over it. Presses go
// the way of a real mouse's: through the window, to the widget below the pointer.
class PanelUnderHand : public testing::Test {
  protected:
    PanelUnderHand() : panel(&window, &host) {
        host.panel = &panel;
        window.resize(700, 600);
        panel.setGeometry(50, 40, 300, 200);
        window.show();
        host.changes.clear();
        // The pointer is where the last test left it, and a move to there would be none.
        PointAt({699, 599});
    }

    QPoint InWindow(QPoint place) const { return panel.mapTo(&window, place); }

    // As of a real mouse, a press elsewhere than the pointer is comes with a move.
    void Press(QPoint place, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier) {
        m_pointer = InWindow(place);
        QTest::mousePress(window.windowHandle(), button, keys, m_pointer);
    }
    void Release(Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseRelease(window.windowHandle(), button, keys, m_pointer);
    }
    // The panel may go along, so that the way of a drag is told in places of the window.
    void PointAt(QPoint placeInWindow) {
        m_pointer = placeInWindow;
        QTest::mouseMove(window.windowHandle(), placeInWindow);
    }
    void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        Press(place, button);
        Release(button);
    }
    void Drag(QPoint from, QPoint toInWindow) {
        Press(from);
        PointAt(toInWindow);
        Release();
    }
    // A resize begins with the first move inside the grip, which is one pixel here.
    void PressGrip() {
        Press(Grip());
        PointAt(InWindow(Grip() + QPoint(1, 1)));
    }

    QPoint Chevron() const { return panel.Areas().chevron.value().center(); }
    QPoint Close() const { return panel.Areas().close.value().center(); }
    QPoint Grip() const { return {panel.width() - 10, panel.height() - 10}; }

    // Keeps a line of every event that the panel raises.
    void Listen() {
        const auto mouse = [this](const char* name) {
            return [this, name](int Button, int Shift, float X, float Y) {
                Note(name, {Button, Shift, int(X), int(Y)});
            };
        };
        QObject::connect(&panel, &xpFrame::MouseDown, mouse("MouseDown"));
        QObject::connect(&panel, &xpFrame::MouseUp, mouse("MouseUp"));
        QObject::connect(&panel, &xpFrame::Click, [this] { Note("Click"); });
        QObject::connect(&panel, &xpFrame::DblClick, [this] { Note("DblClick"); });
        QObject::connect(&panel, &xpFrame::ChevronClick,
                         [this](int Button, int Shift, float X, float Y, bool Collapse,
                                int FooterSize, int HeaderSize, Long Height) {
                             Note("ChevronClick", {Button, Shift, int(X), int(Y), Collapse,
                                                   FooterSize, HeaderSize, Height});
                         });
        QObject::connect(&panel, &xpFrame::Resize, [this](Long cWidth, Long cHeight) {
            Note("Resize", {cWidth, cHeight});
        });
        QObject::connect(&panel, &xpFrame::Move, [this](Long cTop, Long cLeft) {
            Note("Move", {cTop, cLeft});
        });
    }
    // What the panel tells while it is moved and resized, with the two switches as they come.
    struct Switches {
        int Button;
        bool cResize;
        bool cMove;
        bool operator==(const Switches&) const = default;
    };
    void ListenToMoves() {
        QObject::connect(&panel, &xpFrame::MouseMove,
                         [this](int Button, int, float, float, bool& cResize, bool& cMove) {
                             moves.push_back({Button, cResize, cMove});
                         });
    }
    void ExpectPointer(Qt::CursorShape shape) const { EXPECT_EQ(panel.cursor().shape(), shape); }
    void Note(std::string line, std::initializer_list<int> numbers = {}) {
        for (const int number : numbers) line += ' ' + std::to_string(number);
        events.push_back(line);
    }

    RecordingHost host;
    QWidget window;
    xpFrame panel;
    std::vector<std::string> events;
    std::vector<Switches> moves;

  private:
    QPoint m_pointer;
};

}  // namespace tavel::test
