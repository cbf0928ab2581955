#pragma once

#include "ui/toolkit/panel/PropertyBag.h"

#include <span>

namespace tavel {

// The colour that stands for the face of the setting's buttons, and the panel's own back colour.
inline constexpr OleColor vbButtonFace = 0x8000000F;
inline constexpr OleColor vbButtonText = 0x80000012;

// The properties of a panel, in their order, with what a new one has. Lengths are pixels, colours
// are looked up where they are a system colour's, a fill style of 0 runs from left to right and any
// other from top to bottom.
struct PanelProperties {
    static constexpr OleColor White = 0xFFFFFF;
    static constexpr OleColor Blue = 14248960;  // red 0, green 108, blue 217
    static constexpr OleColor Red = 255;

    QString HeaderText;  // in classic style the caption of the frame
    QFont HeaderTextFont;
    Integer HeaderTextAlign = 0;
    OleColor HeaderTextColor = White;
    Integer HeaderSize = 1;
    bool Closeable = false;
    bool HeaderVisible = true;
    OleColor HeaderBackColor = White;
    OleColor HeaderFadeColor = Blue;
    Integer HeaderFillStyle = 1;
    PanelPicture HeaderPicture;
    Integer HeaderPictureSize = 16;
    QString FooterText;
    QFont FooterTextFont;
    Integer FooterTextAlign = 0;
    OleColor FooterTextColor = White;
    Integer FooterSize = 0;
    bool FooterVisible = true;
    bool HeaderPictureVisible = true;
    bool ClassicXPStyle = false;
    bool ZOrderOnFocus = false;
    bool ContainerPictureVisible = true;
    bool ContainerMoveable = false;
    bool ContainerResizable = false;
    OleColor FooterBackColor = Blue;
    OleColor FooterFadeColor = White;
    Integer FooterFillStyle = 1;
    QFont ContainerTextFont;
    OleColor ContainerBackColor = vbButtonFace;
    OleColor ContainerFadeColor = vbButtonFace;
    Integer ContainerFillStyle = 1;
    OleColor ContainerForeColor = vbButtonText;
    OleColor ContainerBorderColor = 0;
    Integer ContainerBorderStyle = 0;
    Long ContainerShapeStyle = 0;
    Integer ContainerCornerRadius = 20;
    PanelPicture ContainerPicture;
    Integer ContainerPictureSize = 32;
    Integer ContainerPictureBufferTop = 0;
    Integer ContainerPictureBufferLeft = 0;
    bool UseCustomColors = false;
    Integer Appearence = 0;
    bool enabled = true;
    bool Expandable = false;
    OleColor CollapseButtonColor = Red;
    OleColor BackColor = vbButtonFace;
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

    // Whatever a store would take for the default: pictures, which it cannot compare, and the back
    // colour, whose default is that of the control at hand.
    bool AlwaysWritten() const;

    // What a new panel has. The switches that are off for a new panel are passed over.
    void Init(PanelProperties& properties, const QFont& ambientFont) const;
};

std::span<const PanelProperty> PanelPropertyTable();
const PanelProperty& RowOf(const PanelProperty::Member& member);

}  // namespace tavel
