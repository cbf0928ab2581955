#pragma once

#include "ui/toolkit/panel/DeviceContext.h"
#include "ui/toolkit/panel/HitAreas.h"
#include "ui/toolkit/panel/PanelHost.h"
#include "ui/toolkit/panel/PanelProperties.h"
#include "ui/toolkit/panel/PanelThemes.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

class QMouseEvent;

namespace tavel {

class InnerLabel;
struct PanelLook;

// A panel with a header bar, a footer bar and room for child controls, which are ordinary child
// widgets. It can be closed, collapsed to its header, moved and resized by the mouse.
//
// A panel starts as a newly placed one. A stored one is read with ReadProperties, which takes any
// earlier property back; children that were disabled stay so until enabled(true). Nothing fails,
// but for ReadProperties.
//
// A receiver of an event does not delete the panel; deleteLater does no harm.
//
// Lengths are Qt's logical pixels unless they are said to be twips. Buttons are 1 for the left, 2
// for the right and 4 for the middle one, in MouseMove their sum; Shift is the sum of 1 for Shift,
// 2 for Control and 4 for Alt. Keys are Qt's.
class xpFrame : public QWidget {
    Q_OBJECT

  public:
    // Without a host, the panel's own widget is it. A host of its own must outlive the panel.
    explicit xpFrame(QWidget* parent = nullptr, PanelHost* host = nullptr);
    ~xpFrame() override;

    // A new panel's properties, with the host's font and its name for the panel. What is off for a
    // new panel is not switched off.
    void InitProperties();

    // The properties as the store has them, and for keys that it does not have the defaults, which
    // are not always a new panel's: ClassicXPStyle and ZOrderOnFocus are on, and the texts are
    // "Header" and "Footer". The present height becomes the one that Expand returns to. Fails with
    // 13 for a value of the wrong kind and with 6 for a number that does not fit; the panel keeps
    // the properties that it had.
    void ReadProperties(const PropertyBag& bag);

    // Keeps the properties in the store: pictures, BackColor and FooterText always, any other when
    // it is not what ReadProperties would take it for without its key.
    void WriteProperties(PropertyBag& bag) const;

    // A drawing surface of the panel's, off the screen, for whoever needs one. Setting it, to
    // whatever, makes it at least as large as the panel; it is remade only when it has to grow or
    // the screen's ratio has changed, and starts black. The panel keeps it; it lives until it is
    // remade.
    DeviceContext* hdc() const { return m_memory.get(); }
    void hdc(DeviceContext*);

    // The panel's own widget, until something else is set.
    QWidget* hwnd() const { return m_hwnd; }
    void hwnd(QWidget* value) { m_hwnd = value; }

    void Expand();    // nothing for a panel that never had a height to return to
    void Collapse();  // remembers the present height, even that of a collapsed panel
    void OnTop();     // in front of its neighbours, through the host
    void closeMe();   // hides the panel through the host; nothing is lost
    void showMe();
    void Refresh();  // draws all of it anew

    // The properties. A setter takes effect at once. They are told in PanelProperties.

    const QString& HeaderText() const { return m_properties.HeaderText; }
    void HeaderText(const QString& value);  // also what a screen reader calls the panel
    const QFont& HeaderTextFont() const { return m_properties.HeaderTextFont; }
    void HeaderTextFont(const QFont& value);
    Integer HeaderTextAlign() const { return m_properties.HeaderTextAlign; }
    void HeaderTextAlign(Integer value);
    OleColor HeaderTextColor() const { return m_properties.HeaderTextColor; }
    void HeaderTextColor(OleColor value);
    Integer HeaderSize() const { return m_properties.HeaderSize; }
    void HeaderSize(Integer value);
    bool Closeable() const { return m_properties.Closeable; }
    void Closeable(bool value);
    bool HeaderVisible() const { return m_properties.HeaderVisible; }
    void HeaderVisible(bool value);
    OleColor HeaderBackColor() const { return m_properties.HeaderBackColor; }
    void HeaderBackColor(OleColor value);
    OleColor HeaderFadeColor() const { return m_properties.HeaderFadeColor; }
    void HeaderFadeColor(OleColor value);
    Integer HeaderFillStyle() const { return m_properties.HeaderFillStyle; }
    void HeaderFillStyle(Integer value);
    const PanelPicture& HeaderPicture() const { return m_properties.HeaderPicture; }
    void HeaderPicture(const PanelPicture& value);
    Integer HeaderPictureSize() const { return m_properties.HeaderPictureSize; }
    void HeaderPictureSize(Integer value);
    const QString& FooterText() const { return m_properties.FooterText; }
    void FooterText(const QString& value);
    const QFont& FooterTextFont() const { return m_properties.FooterTextFont; }
    void FooterTextFont(const QFont& value);
    Integer FooterTextAlign() const { return m_properties.FooterTextAlign; }
    void FooterTextAlign(Integer value);
    OleColor FooterTextColor() const { return m_properties.FooterTextColor; }
    void FooterTextColor(OleColor value);
    Integer FooterSize() const { return m_properties.FooterSize; }
    void FooterSize(Integer value);
    bool FooterVisible() const { return m_properties.FooterVisible; }
    void FooterVisible(bool value);
    bool HeaderPictureVisible() const { return m_properties.HeaderPictureVisible; }
    void HeaderPictureVisible(bool value);
    bool ClassicXPStyle() const { return m_properties.ClassicXPStyle; }
    void ClassicXPStyle(bool value);  // on: BackColor becomes the panel's own back colour
    bool ZOrderOnFocus() const { return m_properties.ZOrderOnFocus; }
    void ZOrderOnFocus(bool value);  // on or off: the panel comes to the front at once
    bool ContainerPictureVisible() const { return m_properties.ContainerPictureVisible; }
    void ContainerPictureVisible(bool value);
    bool ContainerMoveable() const { return m_properties.ContainerMoveable; }
    void ContainerMoveable(bool value);
    bool ContainerResizable() const { return m_properties.ContainerResizable; }
    void ContainerResizable(bool value);  // stays off in classic style
    OleColor FooterBackColor() const { return m_properties.FooterBackColor; }
    void FooterBackColor(OleColor value);
    OleColor FooterFadeColor() const { return m_properties.FooterFadeColor; }
    void FooterFadeColor(OleColor value);
    Integer FooterFillStyle() const { return m_properties.FooterFillStyle; }
    void FooterFillStyle(Integer value);
    const QFont& ContainerTextFont() const { return m_properties.ContainerTextFont; }
    void ContainerTextFont(const QFont& value);
    OleColor ContainerBackColor() const { return m_properties.ContainerBackColor; }
    void ContainerBackColor(OleColor value);
    OleColor ContainerFadeColor() const { return m_properties.ContainerFadeColor; }
    void ContainerFadeColor(OleColor value);
    Integer ContainerFillStyle() const { return m_properties.ContainerFillStyle; }
    void ContainerFillStyle(Integer value);
    OleColor ContainerForeColor() const { return m_properties.ContainerForeColor; }
    void ContainerForeColor(OleColor value);
    OleColor ContainerBorderColor() const { return m_properties.ContainerBorderColor; }
    void ContainerBorderColor(OleColor value);
    Integer ContainerBorderStyle() const { return m_properties.ContainerBorderStyle; }
    void ContainerBorderStyle(Integer value);
    Long ContainerShapeStyle() const { return m_properties.ContainerShapeStyle; }
    void ContainerShapeStyle(Long value);
    Integer ContainerCornerRadius() const { return m_properties.ContainerCornerRadius; }
    void ContainerCornerRadius(Integer value);
    const PanelPicture& ContainerPicture() const { return m_properties.ContainerPicture; }
    void ContainerPicture(const PanelPicture& value);
    Integer ContainerPictureSize() const { return m_properties.ContainerPictureSize; }
    void ContainerPictureSize(Integer value);
    Integer ContainerPictureBufferTop() const { return m_properties.ContainerPictureBufferTop; }
    void ContainerPictureBufferTop(Integer value);
    Integer ContainerPictureBufferLeft() const { return m_properties.ContainerPictureBufferLeft; }
    void ContainerPictureBufferLeft(Integer value);
    bool UseCustomColors() const { return m_properties.UseCustomColors; }
    void UseCustomColors(bool value);
    Integer Appearence() const { return m_properties.Appearence; }
    void Appearence(Integer value);  // outside 0 to 11: kept, and the last theme stays
    bool enabled() const { return m_properties.enabled; }
    void enabled(bool value);  // of the panel and of every child control
    bool Expandable() const { return m_properties.Expandable; }
    void Expandable(bool value);  // stays off in classic style; the panel counts as expanded
    OleColor CollapseButtonColor() const { return m_properties.CollapseButtonColor; }
    void CollapseButtonColor(OleColor value);
    OleColor BackColor() const { return m_properties.BackColor; }
    void BackColor(OleColor value);

    // Rounds the corners of any widget; Curvature is the width and height of a corner's ellipse.
    static void SmoothForm(QWidget& form, Long Curvature);

    // The outline of a rectangle with rounded corners, in the pen of lngHdc. lngWidth and lngHeight
    // are a right and a bottom edge.
    static void UtilDrawShapeStyle(DeviceContext& lngHdc, Long lngLeft, Long lngTop, Long lngWidth,
                                   Long lngHeight, Long radius);

    // A gradient in a rectangle; lngWidth and lngHeight are a right and a bottom edge. horizontal
    // is a fill style: 0 runs from left to right, any other from top to bottom.
    static void UtilDrawBackground(DeviceContext& lngHdc, OleColor colorStart, OleColor colorEnd,
                                   Long lngLeft, Long lngTop, Long lngWidth, Long lngHeight,
                                   Long horizontal);

    // Both colours looked up and mixed: alpha parts of 255 are the first's, the rest the second's.
    static OleColor dBlendColor(OleColor oColorFrom, OleColor oColorTo, std::uint8_t alpha) {
        return tavel::dBlendColor(oColorFrom, oColorTo, alpha);
    }

    // What the panel has drawn, corners included that its shape cuts off.
    const QImage& Surface() const { return m_own.Surface(); }
    const HitAreas& Areas() const { return m_areas; }

  Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);  // the character's code
    void KeyUp(int KeyCode, int Shift);
    void MouseDown(int Button, int Shift, float X, float Y);
    // Whether a resize or a move is in progress, which the receiver may change before it goes on.
    void MouseMove(int Button, int Shift, float X, float Y, bool& cResize, bool& cMove);
    void MouseUp(int Button, int Shift, float X, float Y);
    // Before the panel collapses and after it has expanded. The bars' heights are pixels and
    // Height, the whole panel's, twips.
    void ChevronClick(int Button, int Shift, float X, float Y, bool Collapse, int FooterSize,
                      int HeaderSize, Long Height);
    void Resize(Long cWidth, Long cHeight);  // with every move of a resize
    // With every move of the panel. cTop is the new left and cLeft the new top: receivers are
    // written for this order.
    void Move(Long cTop, Long cLeft);

  protected:
    void changeEvent(QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    template <class Value>
    void Set(Value PanelProperties::*member, Value value);
    void Changed(const PanelProperty::Member& member);
    void ApplyThemeColors();
    void EnableChildren(bool value);
    void ForEachChild(const std::function<void(QWidget&)>& act);

    void Redraw();
    void RedrawFast();
    void FitSurface();
    void ShapeWindow();
    void SetRegion(const QRegion& region);
    void ShowInnerLabel();
    PanelLook Look() const;

    void SetExpanded(int direction);
    void ShowChildControls();
    bool IsIn(const std::optional<QRect>& area, const QPointF& cursor) const;
    void NotePress(const QMouseEvent& event);
    void NoteRelease(Qt::MouseButtons buttons);
    void GiveUpAllBut(Qt::MouseButtons down);
    void StopDrag();
    void ShowAfterDrag();
    void MoveTo(const QPointF& cursor);
    void ResizeTo(const QPointF& cursor);
    QSize SmallestSize() const;
    void ReleaseLeft(const QMouseEvent& event, const QPointF& cursor);
    void ClickChevron(const QMouseEvent& event);
    void TellKey(const QKeyEvent& event);

    PanelProperties m_properties;
    WidgetHost m_window{*this};
    PanelHost& m_host;
    InnerLabel* m_label;
    QWidget* m_hwnd;
    DeviceContext m_own;
    std::unique_ptr<DeviceContext> m_memory;
    HitAreas m_areas;
    PanelColors m_theme;
    unsigned m_headerFlags = 0;  // of the text; a new panel's has none, whatever its alignment
    unsigned m_footerFlags = 0;
    bool m_collapsed = false;
    std::optional<Long> m_expandedHeight;  // twips
    bool m_moving = false;
    bool m_resizing = false;
    Qt::MouseButtons m_held;  // whose press the panel heard, until they are up
    bool m_hasMouse = false;  // the first of them went down on the panel and no child
    bool m_isClick = false;   // the next release ends a click
    float m_mouseX = 0;       // where the left button went down
    float m_mouseY = 0;
};

}  // namespace tavel
