#include "ui/toolkit/panel/PanelProperties.h"

#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace tavel {

namespace {

// Some keys and names have spellings of their own, which saved designs are full of.
const std::array propertyTable = std::to_array<PanelProperty>({
    {&PanelProperties::HeaderText, "HeaderText", "HeaderText", QStringLiteral("Header")},
    {&PanelProperties::HeaderTextFont, "HeaderTextFont", "HeaderTextFont", {}},
    {&PanelProperties::HeaderTextAlign, "HeaderTextAlign", "HeaderTextAlign", {}},
    {&PanelProperties::HeaderTextColor, "HeaderTextColor", "HeaderTextColor", {}},
    {&PanelProperties::HeaderSize, "HeaderSize", "HeaderSize", {}},
    {&PanelProperties::Closeable, "Closeable", "closeable", {}},
    {&PanelProperties::HeaderVisible, "HeaderVisible", "HeaderVisible", {}},
    {&PanelProperties::HeaderBackColor, "HeaderBackColor", "HeaderBackColor", {}},
    {&PanelProperties::HeaderFadeColor, "HeaderFadeColor", "HeaderFadeColor", {}},
    {&PanelProperties::HeaderFillStyle, "HeaderFillStyle", "HeaderFillStyle", {}},
    {&PanelProperties::HeaderPicture, "HeaderPicture", "HeaderPicture", {}},
    {&PanelProperties::HeaderPictureSize, "HeaderPictureSize", "HeaderPictureSize", {}},
    {&PanelProperties::FooterText, "FooterText", "FooterText", QStringLiteral("Footer")},
    {&PanelProperties::FooterTextFont, "footerTextFont", "footerTextFont", {}},
    {&PanelProperties::FooterTextAlign, "FooterTextAlign", "FooterTextAlign", {}},
    {&PanelProperties::FooterTextColor, "FooterTextColor", "FooterTextColor", {}},
    {&PanelProperties::FooterSize, "FooterSize", "FooterSize", {}},
    {&PanelProperties::FooterVisible, "FooterVisible", "FooterVisible", {}},
    {&PanelProperties::HeaderPictureVisible, "HeaderPictureVisible", "HeaderPictureVisible", {}},
    {&PanelProperties::ClassicXPStyle, "ClassicXPStyle", "ClassicXPStyle", true},
    {&PanelProperties::ZOrderOnFocus, "ZOrderOnFocus", "ZOrderOnFocus", true},
    {&PanelProperties::ContainerPictureVisible,
     "ContainerPictureVisible",
     "ContainerPictureVisible",
     {}},
    {&PanelProperties::ContainerMoveable, "ContainerMovable", "ContainerMoveable", {}},
    {&PanelProperties::ContainerResizable, "ContainerResizable", "ContainerResizable", {}},
    {&PanelProperties::FooterBackColor, "FooterBackColor", "FooterBackColor", {}},
    {&PanelProperties::FooterFadeColor, "FooterFadeColor", "FooterFadeColor", {}},
    {&PanelProperties::FooterFillStyle, "FooterFillStyle", "FooterFillStyle", {}},
    {&PanelProperties::ContainerTextFont, "ContainerTextFont", "ContainerTextFont", {}},
    {&PanelProperties::ContainerBackColor, "ContainerBackColor", "ContainerBackColor", {}},
    {&PanelProperties::ContainerFadeColor, "ContainerFadeColor", "ContainerFadeColor", {}},
    {&PanelProperties::ContainerFillStyle, "ContainerFillStyle", "ContainerFillStyle", {}},
    {&PanelProperties::ContainerForeColor, "ContainerForeColor", "ContainerForeColor", {}},
    {&PanelProperties::ContainerBorderColor, "ContainerBorderColor", "ContainerBorderColor", {}},
    {&PanelProperties::ContainerBorderStyle, "ContainerBorderStyle", "ContainerBorderStyle", {}},
    {&PanelProperties::ContainerShapeStyle, "ContainerShapeStyle", "ContainerShapeStyle", {}},
    {&PanelProperties::ContainerCornerRadius, "ContainerCornerRadius", "ContainerCornerRadius", {}},
    {&PanelProperties::ContainerPicture, "ContainerPicture", "ContainerPicture", {}},
    {&PanelProperties::ContainerPictureSize, "ContainerPictureSize", "ContainerPictureSize", {}},
    {&PanelProperties::ContainerPictureBufferTop,
     "ContainerPictureBufferTop",
     "ContainerPictureBufferTop",
     {}},
    {&PanelProperties::ContainerPictureBufferLeft,
     "ContainerPictureBufferLeft",
     "ContainerPictureBufferLeft",
     {}},
    {&PanelProperties::UseCustomColors, "UseCustomColors", "UseCustomColors", {}},
    {&PanelProperties::Appearence, "Appearence", "Appearence", {}},
    {&PanelProperties::enabled, "Enabled", "Enabled", {}},
    {&PanelProperties::Expandable, "Expandable", "Expandable", {}},
    {&PanelProperties::CollapseButtonColor, "CollapseButtonColor", "CollapseButtonColor", {}},
    {&PanelProperties::BackColor, "BackColor", "BackColor", {}},
});

template <class Member>
using ValueOf = std::remove_cvref_t<decltype(std::declval<PanelProperties&>().*Member{})>;

// Stores keep a short number as a long one.
template <class Value>
using KeptAs = std::conditional_t<std::is_same_v<Value, Integer>, Long, Value>;

}  // namespace

PropertyValue PanelProperty::Get(const PanelProperties& properties) const {
    return std::visit(
        [&](auto place) {
            return PropertyValue(KeptAs<ValueOf<decltype(place)>>(properties.*place));
        },
        member);
}

void PanelProperty::Set(PanelProperties& properties, const PropertyValue& value) const {
    std::visit(
        [&](auto place) {
            using Value = ValueOf<decltype(place)>;
            const auto* kept = std::get_if<KeptAs<Value>>(&value);
            if (kept == nullptr) throw Failure(failure::TypeMismatch);
            if constexpr (std::is_same_v<Value, Integer>) {
                properties.*place = ToInteger(*kept);
            } else {
                properties.*place = *kept;
            }
        },
        member);
}

PropertyValue PanelProperty::BagDefault(const QFont& ambientFont) const {
    if (std::holds_alternative<QFont PanelProperties::*>(member)) return ambientFont;
    return otherDefault ? *otherDefault : Get(PanelProperties());
}

bool PanelProperty::AlwaysWritten() const {
    return std::holds_alternative<PanelPicture PanelProperties::*>(member) ||
           member == Member(&PanelProperties::BackColor);
}

void PanelProperty::Init(PanelProperties& properties, const QFont& ambientFont) const {
    const PropertyValue value = std::holds_alternative<QFont PanelProperties::*>(member)
                                    ? PropertyValue(ambientFont)
                                    : Get(PanelProperties());
    if (value != PropertyValue(false)) Set(properties, value);
}

std::span<const PanelProperty> PanelPropertyTable() { return propertyTable; }

const PanelProperty& RowOf(const PanelProperty::Member& member) {
    return *std::find_if(propertyTable.begin(), propertyTable.end(),
                         [&](const PanelProperty& row) { return row.member == member; });
}

}  // namespace tavel
