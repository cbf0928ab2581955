#include "ui/panel/PanelModel.h"

#include <QApplication>
#include <QPalette>
#include <QRegion>
#include <algorithm>
#include <array>
#include <map>
#include <sstream>

namespace tavel::test {

using Rgb = PanelModel::Rgb;

struct PanelModel::Tint {
    Rgb headerStart, headerEnd, headerText, chevron, footerStart, footerEnd, footerText,
        containerStart, containerEnd, border;
};

namespace {

constexpr Rgb FromTriple(int red, int green, int blue) {
    return static_cast<Rgb>(red << 16 | green << 8 | blue);
}

// A system color's number is the place of its role in the palette that is kept here.
Rgb SystemRole(unsigned number) {
    static const std::map<unsigned, QPalette::ColorRole> roles{{0x05, QPalette::Base},
                                                               {0x08, QPalette::Text},
                                                               {0x0D, QPalette::Highlight},
                                                               {0x0F, QPalette::Button},
                                                               {0x12, QPalette::ButtonText}};
    return QApplication::palette().color(roles.at(number)).rgb() & 0xFFFFFF;
}

// The low bytes of a color, whatever it stands for.
Rgb Plain(OleColor color) { return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF); }

int HeaderHeight(int size) { return size == 0 ? 18 : size == 1 ? 25 : size == 2 ? 40 : 0; }
int FooterHeight(int size) { return size == 0 ? 20 : size == 1 ? 34 : 0; }

int Channel(Rgb color, int shift) { return static_cast<int>(color >> shift & 0xFF); }

// Step of steps on the way from start to end, each channel cut toward zero.
Rgb Between(Rgb start, Rgb end, int step, int steps) {
    Rgb mixed = 0;
    for (const int shift : {16, 8, 0}) {
        const int from = Channel(start, shift);
        const int way = (Channel(end, shift) - from) * step / steps;
        mixed |= static_cast<Rgb>(from + way) << shift;
    }
    return mixed;
}

// How far a corner of that diameter keeps off the side, row by row, as the setting's own drawing
// calls were seen to do it.
int Inset(int diameter, int row) {
    static const std::map<int, std::vector<int>> measured{{0, {}},
                                                          {1, {}},
                                                          {2, {}},
                                                          {7, {2, 1}},
                                                          {8, {2, 1}},
                                                          {9, {3, 1, 1}},
                                                          {12, {4, 2, 1, 1}},
                                                          {20, {7, 5, 4, 3, 2, 1, 1}}};
    const std::vector<int>& insets = measured.at(diameter);
    return row < static_cast<int>(insets.size()) ? insets[static_cast<std::size_t>(row)] : 0;
}

// Of the shape in (0, top) to (right, bottom), both outside.
bool InShape(int x, int y, int top, int right, int bottom, int diameter) {
    if (x < 0 || y < top || x >= right || y >= bottom) return false;
    const int inset = Inset(diameter, std::min(y - top, bottom - 1 - y));
    return x >= inset && x < right - inset;
}

}  // namespace

Rgb PanelModel::Shown(OleColor color) {
    return (color & 0x80000000) != 0 ? SystemRole(color & 0xFF) : Plain(color);
}

PanelModel::Tint PanelModel::TintOf(const PanelProperties& p) {
    if (p.UseCustomColors) {
        // The container's are the only ones that are not looked up.
        return {Shown(p.HeaderBackColor),    Shown(p.HeaderFadeColor),
                Shown(p.HeaderTextColor),    Shown(p.CollapseButtonColor),
                Shown(p.FooterBackColor),    Shown(p.FooterFadeColor),
                Shown(p.FooterTextColor),    Plain(p.ContainerBackColor),
                Plain(p.ContainerFadeColor), Shown(p.ContainerBorderColor)};
    }
    struct Triple {
        int red, green, blue;
    };
    // Mixed with 230 parts of 255 of a color in black: 90 gives 81, and 11, 63, 153 give 10, 57,
    // 138.
    static constexpr Triple themes[12][10] = {{{137, 170, 224},
                                               {7, 33, 100},
                                               {215, 230, 251},
                                               {172, 191, 227},
                                               {9, 42, 127},
                                               {102, 145, 215},
                                               {215, 230, 251},
                                               {142, 179, 231},
                                               {142, 179, 231},
                                               {1, 45, 150}},
                                              {{160, 160, 160},
                                               {81, 81, 81},
                                               {255, 255, 255},
                                               {220, 220, 220},
                                               {169, 169, 169},
                                               {105, 105, 105},
                                               {215, 230, 251},
                                               {112, 112, 112},
                                               {112, 112, 112},
                                               {68, 68, 68}},
                                              {{216, 228, 248},
                                               {49, 106, 197},
                                               {215, 230, 251},
                                               {65, 105, 225},
                                               {49, 106, 197},
                                               {211, 229, 250},
                                               {215, 230, 251},
                                               {243, 255, 255},
                                               {142, 179, 231},
                                               {192, 211, 240}},
                                              {{255, 255, 255},
                                               {201, 211, 243},
                                               {0, 41, 99},
                                               {172, 191, 227},
                                               {255, 255, 255},
                                               {184, 205, 236},
                                               {0, 41, 99},
                                               {255, 255, 255},
                                               {201, 211, 243},
                                               {184, 205, 236}},
                                              {{228, 235, 200},
                                               {175, 194, 142},
                                               {100, 144, 88},
                                               {143, 188, 139},
                                               {165, 182, 121},
                                               {233, 244, 207},
                                               {215, 230, 251},
                                               {233, 244, 207},
                                               {233, 244, 207},
                                               {100, 144, 88}},
                                              {{219, 220, 232},
                                               {149, 147, 177},
                                               {119, 118, 151},
                                               {106, 90, 205},
                                               {149, 147, 177},
                                               {207, 223, 239},
                                               {215, 230, 251},
                                               {232, 232, 232},
                                               {232, 232, 232},
                                               {119, 118, 151}},
                                              {{209, 227, 251},
                                               {106, 140, 203},
                                               {110, 109, 143},
                                               {45, 80, 153},
                                               {176, 196, 222},
                                               {100, 149, 237},
                                               {215, 230, 251},
                                               {255, 255, 255},
                                               {255, 255, 255},
                                               {0, 0, 128}},
                                              {{255, 122, 0},
                                               {130, 0, 0},
                                               {255, 222, 173},
                                               {246, 172, 84},
                                               {180, 99, 1},
                                               {130, 0, 0},
                                               {215, 230, 251},
                                               {255, 222, 173},
                                               {224, 180, 97},
                                               {139, 0, 0}},
                                              {{72, 209, 204},
                                               {43, 103, 109},
                                               {233, 250, 248},
                                               {193, 240, 234},
                                               {0, 139, 139},
                                               {0, 128, 128},
                                               {215, 230, 251},
                                               {224, 255, 255},
                                               {224, 255, 255},
                                               {65, 131, 111}},
                                              {{192, 192, 192},
                                               {51, 51, 51},
                                               {235, 235, 235},
                                               {220, 220, 220},
                                               {128, 128, 128},
                                               {211, 211, 211},
                                               {215, 230, 251},
                                               {235, 235, 235},
                                               {235, 235, 235},
                                               {51, 51, 51}},
                                              {{81, 128, 208},
                                               {10, 57, 138},
                                               {255, 0, 0},
                                               {191, 0, 0},
                                               {81, 128, 208},
                                               {10, 57, 138},
                                               {215, 230, 251},
                                               {142, 179, 231},
                                               {142, 179, 231},
                                               {0, 45, 150}},
                                              {{0, 45, 150},
                                               {89, 135, 214},
                                               {172, 191, 227},
                                               {172, 191, 227},
                                               {255, 255, 255},
                                               {201, 211, 243},
                                               {215, 230, 251},
                                               {246, 247, 248},
                                               {246, 247, 248},
                                               {124, 124, 148}}};
    std::array<Rgb, 10> row{};
    std::ranges::transform(themes[p.Appearence], row.begin(),
                           [](Triple t) { return FromTriple(t.red, t.green, t.blue); });
    return {row[0], row[1], row[2], row[3], row[4], row[5], row[6], row[7], row[8], row[9]};
}

PanelModel::PanelModel(const PanelProperties& p, int width, int height, bool collapsed)
    : m_width(width),
      m_height(height),
      m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
               Shown(p.BackColor)),
      m_others(m_pixels) {
    if (p.ClassicXPStyle) {
        DrawClassic(p);
    } else {
        if (p.ContainerShapeStyle == 1) m_diameter = std::abs(p.ContainerCornerRadius);
        DrawFramed(p, collapsed);
    }
}

bool PanelModel::Inside(int x, int y) const {
    return InShape(x, y, 0, m_width - 1, m_height - 1, m_diameter);
}

bool PanelModel::Allows(int x, int y, Rgb color) const {
    return color == m_pixels[Index(x, y)] || color == m_others[Index(x, y)];
}

void PanelModel::Put(int x, int y, Rgb color) {
    if (x < 0 || y < 0 || x >= m_width || y >= m_height) return;
    m_pixels[Index(x, y)] = m_others[Index(x, y)] = color;
}

void PanelModel::DrawClassic(const PanelProperties& p) {
    DrawOutline(4, 8, p.ContainerBorderStyle, FromTriple(208, 208, 191));
}

void PanelModel::DrawFramed(const PanelProperties& p, bool collapsed) {
    const Tint tint = TintOf(p);
    const int header = HeaderHeight(p.HeaderSize);
    const int footer = FooterHeight(p.FooterSize);

    DrawContainer({0, p.HeaderVisible ? header - 2 : 0, m_width,
                   p.FooterVisible ? m_height - footer : m_height},
                  tint.containerStart, tint.containerEnd);
    if (p.FooterVisible) {
        DrawBar({0, m_height - footer, m_width - 1, m_height}, p.FooterFillStyle, tint.footerStart,
                tint.footerEnd);
    }
    if (p.HeaderVisible) {
        DrawBar({0, 0, m_width - (p.UseCustomColors ? 2 : 1), header}, p.HeaderFillStyle,
                tint.headerStart, tint.headerEnd);
    }
    DrawOutline(0, m_diameter, p.ContainerBorderStyle, tint.border);

    if (p.HeaderVisible && p.HeaderPictureVisible)
        DrawPicture(4, (header - p.HeaderPictureSize) / 2, p.HeaderPicture, p.HeaderPictureSize);
    if (p.HeaderVisible && p.Expandable)
        DrawChevron(m_width - 23 - (p.Closeable ? 19 : 0), collapsed, tint.chevron);
    if (p.ContainerResizable && p.FooterVisible && !collapsed) DrawGrip(tint.chevron);
    if (p.Closeable) DrawCross(m_width - 23, tint.chevron);
    if (p.ContainerPictureVisible) {
        const int top = (p.HeaderVisible ? header : 0) + p.ContainerPictureBufferTop + 2;
        DrawPicture(p.ContainerPictureBufferLeft + 4, top, p.ContainerPicture,
                    p.ContainerPictureSize);
    }
}

// The picture of the gradient is made a row shorter than the area that it is put on, and the area's
// last row keeps what was there.
void PanelModel::DrawContainer(Edges edges, Rgb start, Rgb end) {
    const int rows = edges.bottom - edges.top;
    for (int row = 0; row < rows - 1; ++row) {
        for (int x = edges.left; x < edges.right; ++x)
            Put(x, edges.top + row, Between(start, end, row, rows));
    }
}

void PanelModel::DrawBar(Edges edges, int fillStyle, Rgb start, Rgb end) {
    for (int y = edges.top; y < edges.bottom; ++y) {
        for (int x = edges.left; x < edges.right; ++x) {
            Put(x, y,
                fillStyle == 0 ? Between(start, end, x - edges.left, edges.right - edges.left)
                               : Between(start, end, y - edges.top, edges.bottom - edges.top));
        }
    }
}

// Of the shape, the pixels that have a neighbour outside of it.
void PanelModel::DrawOutline(int top, int diameter, int penStyle, Rgb color) {
    if (penStyle == 5) return;
    const auto inside = [&](int x, int y) {
        return InShape(x, y, top, m_width - 1, m_height - 1, diameter);
    };
    for (int y = top; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            const bool hidden =
                inside(x - 1, y) && inside(x + 1, y) && inside(x, y - 1) && inside(x, y + 1);
            if (!inside(x, y) || hidden) continue;
            m_others[Index(x, y)] = color;
            if (penStyle < 1 || penStyle > 4) m_pixels[Index(x, y)] = color;
        }
    }
}

void PanelModel::DrawPicture(int left, int top, const PanelPicture& picture, int side) {
    if (picture.IsNone()) return;
    const QImage source =
        picture.IsIcon() ? picture.Icon().pixmap(side).toImage() : picture.Bitmap();
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const QRgb pixel = source.pixel(x * source.width() / side, y * source.height() / side);
            const bool shown = picture.IsIcon() ? qAlpha(pixel) == 255
                                                : ((pixel ^ source.pixel(0, 0)) & 0xFFFFFF) != 0;
            if (shown) Put(left + x, top + y, pixel & 0xFFFFFF);
        }
    }
}

// All lines are level, upright or diagonal; each leaves its end to the next one.
void PanelModel::DrawLines(std::initializer_list<Point> points, Point origin, Rgb color) {
    const auto step = [](int from, int to) { return from < to ? 1 : from > to ? -1 : 0; };
    for (const Point* to = points.begin() + 1; to < points.end(); ++to) {
        Point at = to[-1];
        const Point by{step(at.x, to->x), step(at.y, to->y)};
        for (; at.x != to->x || at.y != to->y; at.x += by.x, at.y += by.y)
            Put(origin.x + at.x, origin.y + at.y, color);
    }
}

PanelModel::Point PanelModel::DrawButton(int left, Rgb color) {
    const Point box{left, 2};
    DrawLines({{1, 14}, {1, 1}, {16, 1}, {16, 14}, {1, 14}}, box, color);
    return box;
}

void PanelModel::DrawChevron(int left, bool collapsed, Rgb color) {
    const Point box = DrawButton(left, color);
    if (collapsed) {
        DrawLines({{5, 4}, {8, 7}, {12, 3}}, box, color);
        DrawLines({{6, 4}, {8, 6}, {11, 3}}, box, color);
        DrawLines({{5, 8}, {8, 11}, {12, 7}}, box, color);
        DrawLines({{6, 8}, {8, 10}, {11, 7}}, box, color);
    } else {
        DrawLines({{5, 7}, {8, 4}, {12, 8}}, box, color);
        DrawLines({{6, 7}, {8, 5}, {11, 8}}, box, color);
        DrawLines({{5, 11}, {8, 8}, {12, 12}}, box, color);
        DrawLines({{6, 11}, {8, 9}, {11, 12}}, box, color);
    }
}

void PanelModel::DrawCross(int left, Rgb color) {
    const Point box = DrawButton(left, color);
    DrawLines({{5, 5}, {8, 8}, {12, 4}}, box, color);
    DrawLines({{6, 5}, {8, 7}, {11, 4}}, box, color);
    DrawLines({{5, 10}, {8, 7}, {12, 11}}, box, color);
    DrawLines({{6, 10}, {8, 8}, {11, 11}}, box, color);
}

void PanelModel::DrawGrip(Rgb color) {
    const Point corner{m_width, m_height};
    DrawLines({{-6, -18}, {-20, -4}, {-19, -4}, {-5, -18}}, corner, color);
    DrawLines({{-6, -13}, {-15, -4}, {-14, -4}, {-5, -13}}, corner, color);
}

std::vector<PanelModel::Difference> PanelModel::Differences(const QImage& picture) const {
    std::vector<Difference> differences;
    const int ratio = m_width > 0 ? picture.width() / m_width : 1;
    for (int y = 0; y < m_height * ratio; ++y) {
        for (int x = 0; x < m_width * ratio; ++x) {
            const Difference pixel{x / ratio, y / ratio, picture.pixel(x, y) & 0xFFFFFF};
            if (Inside(pixel.x, pixel.y) && !Allows(pixel.x, pixel.y, pixel.color))
                differences.push_back(pixel);
        }
    }
    return differences;
}

std::string PanelModel::Place(int x, int y) const {
    return "(" + std::to_string(x) + ", " + std::to_string(y) + ") of " + std::to_string(m_width) +
           " x " + std::to_string(m_height);
}

std::string PanelModel::FirstDifference(const QImage& picture) const {
    const std::vector<Difference> differences = Differences(picture);
    if (differences.empty()) return {};
    const Difference& first = differences.front();
    std::ostringstream text;
    text << Place(first.x, first.y) << " and " << differences.size() - 1 << " more differ: it is "
         << std::hex << first.color << " and should be " << m_pixels[Index(first.x, first.y)];
    return text.str();
}

std::string PanelModel::FirstDifference(const QRegion& window) const {
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if (window.contains(QPoint(x, y)) == Inside(x, y)) continue;
            return Place(x, y) + (Inside(x, y) ? " should" : " should not") + " be in it";
        }
    }
    return {};
}

PanelModel::Edges PanelModel::HeaderTextEdges(const PanelProperties& p, int width) {
    const bool picture = !p.HeaderPicture.IsNone() && p.HeaderPictureVisible;
    return {
        3 + p.HeaderPictureSize + 3 - (picture ? 0 : 18), 3,
        width - (p.UseCustomColors ? 2 : 1) - 3 - (p.Expandable ? 20 : 0) - (p.Closeable ? 20 : 0),
        HeaderHeight(p.HeaderSize) - 1};
}

PanelModel::Edges PanelModel::FooterTextEdges(const PanelProperties& p, int width, int height) {
    return {3, height - FooterHeight(p.FooterSize) + 2, width - 4, height - 1};
}

}  // namespace tavel::test
