#pragma once

#include "ui/toolkit/panel/xpFrame.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>
#include <initializer_list>

namespace tavel::test {

using Integers = std::initializer_list<Integer>;

// A panel with those properties on a window of the screen.
class PlacedPanel {
  public:
    PlacedPanel(const PanelProperties& properties, int width, int height) : panel(&m_window) {
        m_window.resize(width + 200, height + 200);
        panel.setGeometry(20, 20, width, height);
        Read(properties);
        m_window.show();
    }

    void Read(const PanelProperties& properties) {
        MemoryPropertyBag bag;
        for (const PanelProperty& row : PanelPropertyTable())
            bag.WriteProperty(row.sKey, row.Get(properties));
        panel.ReadProperties(bag);
    }

    QImage Picture() { return panel.grab().toImage(); }

    // The part of the panel that its shape lets through.
    QRegion Window() const {
        return panel.mask().isEmpty() ? QRegion(panel.rect()) : panel.mask() & panel.rect();
    }

  private:
    QWidget m_window;

  public:
    xpFrame panel;
};

// A palette in which no two of the roles that a panel can name are alike.
class ColorfulPalette {
  public:
    ColorfulPalette() : m_usual(QApplication::palette()) {
        QPalette colorful = m_usual;
        colorful.setColor(QPalette::Base, QColor(10, 200, 30));
        colorful.setColor(QPalette::Text, QColor(20, 40, 250));
        colorful.setColor(QPalette::Highlight, QColor(250, 130, 0));
        colorful.setColor(QPalette::Button, QColor(190, 180, 220));
        colorful.setColor(QPalette::ButtonText, QColor(90, 0, 60));
        colorful.setColor(QPalette::Window, QColor(1, 2, 3));
        QApplication::setPalette(colorful);
    }
    ~ColorfulPalette() { QApplication::setPalette(m_usual); }
    ColorfulPalette(const ColorfulPalette&) = delete;
    ColorfulPalette& operator=(const ColorfulPalette&) = delete;

  private:
    QPalette m_usual;
};

// Custom colours, each a different one, with ways up and down in every channel.
inline PanelProperties WithCustomColors() {
    PanelProperties p;
    p.UseCustomColors = true;
    p.HeaderBackColor = 0x0A64F0;
    p.HeaderFadeColor = 0xC8320F;
    p.HeaderTextColor = 0x00FFFF;
    p.FooterBackColor = 0x1EB405;
    p.FooterFadeColor = 0x7B07FA;
    p.FooterTextColor = 0xFFFF00;
    p.ContainerBackColor = 0xF0E6D2;
    p.ContainerFadeColor = 0x5A8CFF;
    p.ContainerBorderColor = 0x2B1A09;
    p.CollapseButtonColor = 0x00C81E;
    p.BackColor = 0x9C5BE1;
    return p;
}

}  // namespace tavel::test
