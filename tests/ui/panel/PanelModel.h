#pragma once

#include "ui/toolkit/panel/PanelProperties.h"

#include <QImage>
#include <string>
#include <vector>

namespace tavel::test {

// What a panel has to look like, worked out pixel by pixel from its properties: loops over numbers,
// none of what the panel itself draws with. Texts are left out, since fonts decide about them;
// TextEdges tells where they belong.
class PanelModel {
  public:
    using Rgb = unsigned;  // 0xRRGGBB

    PanelModel(const PanelProperties& properties, int width, int height, bool collapsed = false);

    // Whether the pixel lies in the panel's window.
    bool Inside(int x, int y) const;

    // Whether the pixel may have that colour. A broken line leaves some pixels open.
    bool Allows(int x, int y, Rgb color) const;
    Rgb At(int x, int y) const { return m_pixels[Index(x, y)]; }

    // The pixels in the panel's window that the model doesn't allow, at the model's places. The
    // picture may have two or more pixels to each of the model's.
    struct Difference {
        int x, y;
        Rgb color;
    };
    std::vector<Difference> Differences(const QImage& picture) const;

    // The first of them in words, with the colour that it should have; empty if there is none.
    std::string FirstDifference(const QImage& picture) const;
    // The same of what is in the panel's window.
    std::string FirstDifference(const QRegion& window) const;

    // The rectangle that the bar's text is cut to, right and bottom outside.
    struct Edges {
        int left, top, right, bottom;
    };
    static Edges HeaderTextEdges(const PanelProperties& properties, int width);
    static Edges FooterTextEdges(const PanelProperties& properties, int width, int height);

    // 0x00BBGGRR or a system colour, as the screen shows it.
    static Rgb Shown(OleColor color);

  private:
    struct Tint;
    static Tint TintOf(const PanelProperties& properties);

    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
               static_cast<std::size_t>(x);
    }
    std::string Place(int x, int y) const;
    void Put(int x, int y, Rgb color);
    void DrawClassic(const PanelProperties& properties);
    void DrawFramed(const PanelProperties& properties, bool collapsed);
    void DrawContainer(Edges edges, Rgb start, Rgb end);
    void DrawBar(Edges edges, int fillStyle, Rgb start, Rgb end);
    void DrawOutline(int top, int diameter, int penStyle, Rgb color);
    void DrawPicture(int left, int top, const PanelPicture& picture, int side);
    struct Point {
        int x, y;
    };
    void DrawLines(std::initializer_list<Point> points, Point origin, Rgb color);
    Point DrawButton(int left, Rgb color);
    void DrawChevron(int left, bool collapsed, Rgb color);
    void DrawCross(int left, Rgb color);
    void DrawGrip(Rgb color);

    int m_width;
    int m_height;
    int m_diameter = 0;  // of the corners
    std::vector<Rgb> m_pixels;
    std::vector<Rgb> m_others;  // the second colour that a pixel may have
};

}  // namespace tavel::test
