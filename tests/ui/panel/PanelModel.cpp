#include "ui/panel/PanelModel.h"

#include <QApplication>
#include <QPalette>
#include <QRegion>
#include <algorithm>
#include <map>
#include <sstream>

namespace tavel::test {

using Rgb = PanelModel::Rgb;

struct PanelModel::Tint {
    Rgb headerStart, headerEnd, headerText, chevron, footerStart, footerEnd, footerText,
        containerStart, containerEnd, border;
};

namespace {

// A system colour's number is the place of its role in the palette that is kept here.
Rgb SystemRole(unsigned number) {
    static const std::map<unsigned, QPalette::ColorRole> roles{{0x05, QPalette::Base},
                                                               {0x08, QPalette::Text},
                                                               {0x0D, QPalette::Highlight},
                                                               {0x0F, QPalette::Button},
                                                               {0x12, QPalette::ButtonText}};
    return QApplication::palette().color(roles.at(number)).rgb() & 0xFFFFFF;
}

// The low bytes of a colour, whatever it stands for.
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

// A row a theme, in the order of a tint.
constexpr const char* themes[]{
    "89AAE0 072164 D7E6FB ACBFE3 092A7F 6691D7 D7E6FB 8EB3E7 8EB3E7 012D96",
    "A0A0A0 515151 FFFFFF DCDCDC A9A9A9 696969 D7E6FB 707070 707070 444444",
    "D8E4F8 316AC5 D7E6FB 4169E1 316AC5 D3E5FA D7E6FB F3FFFF 8EB3E7 C0D3F0",
    "FFFFFF C9D3F3 002963 ACBFE3 FFFFFF B8CDEC 002963 FFFFFF C9D3F3 B8CDEC",
    "E4EBC8 AFC28E 649058 8FBC8B A5B679 E9F4CF D7E6FB E9F4CF E9F4CF 649058",
    "DBDCE8 9593B1 777697 6A5ACD 9593B1 CFDFEF D7E6FB E8E8E8 E8E8E8 777697",
    "D1E3FB 6A8CCB 6E6D8F 2D5099 B0C4DE 6495ED D7E6FB FFFFFF FFFFFF 000080",
    "FF7A00 820000 FFDEAD F6AC54 B46301 820000 D7E6FB FFDEAD E0B461 8B0000",
    "48D1CC 2B676D E9FAF8 C1F0EA 008B8B 008080 D7E6FB E0FFFF E0FFFF 41836F",
    "C0C0C0 333333 EBEBEB DCDCDC 808080 D3D3D3 D7E6FB EBEBEB EBEBEB 333333",
    "5180D0 0A398A FF0000 BF0000 5180D0 0A398A D7E6FB 8EB3E7 8EB3E7 002D96",
    "002D96 5987D6 ACBFE3 ACBFE3 FFFFFF C9D3F3 D7E6FB F6F7F8 F6F7F8 7C7C94"};

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
    std::istringstream row(themes[p.Appearence]);
    Tint tint{};
    for (Rgb* color : {&tint.headerStart, &tint.headerEnd, &tint.headerText, &tint.chevron,
                       &tint.footerStart, &tint.footerEnd, &tint.footerText, &tint.containerStart,
                       &tint.containerEnd, &tint.border})
        row >> std::hex >> *color;
    return tint;
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
    DrawOutline(4, 8, p.ContainerBorderStyle, 0xD0D0BF);
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

// Without a side, a picture is as large as it is.
void PanelModel::DrawPicture(int left, int top, const PanelPicture& picture, int side) {
    if (picture.IsNone()) return;
    const QImage source =
        !picture.IsIcon()
            ? picture.Bitmap()
            : picture.Icon()
                  .pixmap(side == 0 ? picture.Icon().availableSizes().front() : QSize(side, side))
                  .toImage();
    const int width = side == 0 ? source.width() : side;
    const int height = side == 0 ? source.height() : side;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel =
                source.pixel(x * source.width() / width, y * source.height() / height);
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
