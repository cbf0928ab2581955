#pragma once

#include "ui/toolkit/panel/PropertyBag.h"

#include <span>

namespace tavel {

// The colour that stands for the face of the setting's buttons, and the panel's own back colour.
inline constexpr OleColor vbButtonFace = 0x8000000F;
inline constexpr OleColor vbButtonText = 0x80000012;

// The properties of a panel, in their order, with what a new one has. Lengths are pixels. Custom
// colours count while UseCustomColors is on; system colours are looked up but for the container's,
// which are only looked up while the panel is resized by the mouse.
// A fill style of 0 runs from left to right, any other from top to bottom. Sizes and alignments
// that mean nothing are kept.
struct PanelProperties {
    static constexpr OleColor White = 0xFFFFFF;
    static constexpr OleColor Blue = 14248960;  // red 0, green 108, blue 217
    static constexpr OleColor Red = 255;

    QString HeaderText;  // of the header bar; in classic style the caption of the frame
    QFont HeaderTextFont;
    // 0 to 2 left, 3 to 5 right, 6 to 8 centre; of each top, middle, bottom, and in one line. The
    // text of a panel whose alignment was never set nor read is left, top, and may have more lines.
    Integer HeaderTextAlign = 0;
    OleColor HeaderTextColor = White;  // custom
    Integer HeaderSize = 1;            // of the bar: 0 is 18 high, 1 is 25, 2 is 40, any other 0
    bool Closeable = false;            // has a close button
    bool HeaderVisible = true;         // the bar; the chevron and the header's picture go with it
    OleColor HeaderBackColor = White;  // custom, where the bar's gradient starts
    OleColor HeaderFadeColor = Blue;   // custom, where it ends
    Integer HeaderFillStyle = 1;
    PanelPicture HeaderPicture;
    Integer HeaderPictureSize = 16;  // its side
    QString FooterText;
    QFont FooterTextFont;
    Integer FooterTextAlign = 0;       // as the header's
    OleColor FooterTextColor = White;  // custom
    Integer FooterSize = 0;            // of the bar: 0 is 20 high, 1 is 34, any other 0
    bool FooterVisible = true;         // the bar; the grip goes with it
    bool HeaderPictureVisible = true;
    bool ClassicXPStyle = false;  // a group box in place of everything else
    bool ZOrderOnFocus = false;   // comes to the front when it gets the focus
    bool ContainerPictureVisible = true;
    bool ContainerMoveable = false;    // can be dragged
    bool ContainerResizable = false;   // has a grip
    OleColor FooterBackColor = Blue;   // custom, where the bar's gradient starts
    OleColor FooterFadeColor = White;  // custom, where it ends
    Integer FooterFillStyle = 1;
    QFont ContainerTextFont;  // for the host; the panel draws nothing with it
    // Custom, where the container's gradient starts and ends. A system colour is not looked up for
    // it: its low 24 bits are what is drawn.
    OleColor ContainerBackColor = vbButtonFace;
    OleColor ContainerFadeColor = vbButtonFace;
    Integer ContainerFillStyle = 1;              // kept; the container's gradient runs down
    OleColor ContainerForeColor = vbButtonText;  // for the host, as the font is
    OleColor ContainerBorderColor = 0;           // custom, of the outline
    Integer ContainerBorderStyle = 0;            // a PenStyle
    Long ContainerShapeStyle = 0;                // 1 is round corners, any other square ones
    Integer ContainerCornerRadius = 20;  // width and height of a round corner's whole ellipse
    PanelPicture ContainerPicture;
    Integer ContainerPictureSize = 32;       // its side
    Integer ContainerPictureBufferTop = 0;   // its distance from the container's top
    Integer ContainerPictureBufferLeft = 0;  // ... and left
    bool UseCustomColors = false;            // rather than the theme's
    Integer Appearence = 0;                  // the theme, 0 to 11
    bool enabled = true;
    bool Expandable = false;             // has a chevron
    OleColor CollapseButtonColor = Red;  // custom, of chevron, close button and grip
    OleColor BackColor = vbButtonFace;   // in classic style, and wherever nothing is drawn
};

// What is to be known of one property: its place in the record, its key in a store, what a store
// without the key gives, and the name under which the host hears of a change.
struct PanelProperty {
    using Member =
        std::variant<bool PanelProperties::*, Integer PanelProperties::*, Long PanelProperties::*,
                     OleColor PanelProperties::*, QString PanelProperties::*,
                     QFont PanelProperties::*, PanelPicture PanelProperties::*>;

    Member member;
    std::string_view sKey;
    std::string_view sChangeName;
    std::optional<PropertyValue> otherDefault;  // where it is not what a new panel has

    // Of a panel whose host has that font.
    PropertyValue BagDefault(const QFont& ambientFont) const;

    PropertyValue Get(const PanelProperties& properties) const;

    // Fails with 13 for a value of another kind and with 6 for a number that does not fit.
    void Set(PanelProperties& properties, const PropertyValue& value) const;

    // A picture has no default that a store could compare it with, and neither has the back colour:
    // its default is the one that the control has at the time.
    bool AlwaysWritten() const;

    // What a new panel has. The switches that are off for a new panel are passed over.
    void Init(PanelProperties& properties, const QFont& ambientFont) const;
};

std::span<const PanelProperty> PanelPropertyTable();
const PanelProperty& RowOf(const PanelProperty::Member& member);

}  // namespace tavel
