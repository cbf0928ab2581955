#include "ui/toolkit/Twips.h"
#include "ui/toolkit/panel/xpFrame.h"

#include <array>

namespace tavel {

namespace {

// The flags word of each alignment from 0 to 8. Any other leaves the text as it was.
void TakeTextFlags(unsigned& flags, Integer alignment) {
    constexpr std::array<unsigned, 9> words{
        DT_SINGLELINE,
        DT_SINGLELINE | DT_VCENTER,
        DT_SINGLELINE | DT_BOTTOM,
        DT_SINGLELINE | DT_RIGHT,
        DT_SINGLELINE | DT_RIGHT | DT_VCENTER,
        DT_SINGLELINE | DT_RIGHT | DT_BOTTOM,
        DT_SINGLELINE | DT_CENTER,
        DT_SINGLELINE | DT_CENTER | DT_VCENTER,
        DT_SINGLELINE | DT_CENTER | DT_BOTTOM,
    };
    if (alignment >= 0 && alignment < static_cast<Integer>(words.size()))
        flags = words[static_cast<std::size_t>(alignment)];
}

// Designs hold these texts twice, so that the later ones are what counts.
constexpr std::array textsKeptTwice{&PanelProperties::HeaderText, &PanelProperties::FooterText};

bool IsTheme(Integer appearence) { return appearence >= 0 && appearence < PanelThemeCount; }

}  // namespace

void xpFrame::InitProperties() {
    const QFont ambientFont = m_host.AmbientFont();
    for (const PanelProperty& row : PanelPropertyTable()) row.Init(m_properties, ambientFont);
    m_properties.HeaderText = m_host.DisplayName();
    setAccessibleName(m_properties.HeaderText);
    setEnabled(m_properties.enabled);
    ApplyThemeColors();
    Redraw();
}

void xpFrame::ReadProperties(const PropertyBag& bag) {
    const QFont ambientFont = m_host.AmbientFont();
    PanelProperties read;
    const auto readOne = [&](const PanelProperty& row) {
        row.Set(read, bag.ReadProperty(row.sKey, row.BagDefault(ambientFont)));
    };
    for (const PanelProperty& row : PanelPropertyTable()) readOne(row);
    for (const auto text : textsKeptTwice) readOne(RowOf(text));
    m_properties = read;
    setAccessibleName(m_properties.HeaderText);
    if (!IsTheme(m_properties.Appearence)) m_theme = PanelTheme(0);
    ApplyThemeColors();
    m_expandedHeight = Twips(height());
    TakeTextFlags(m_headerFlags, m_properties.HeaderTextAlign);
    TakeTextFlags(m_footerFlags, m_properties.FooterTextAlign);
    setEnabled(m_properties.enabled);
    if (!m_properties.enabled) EnableChildren(false);
    Redraw();
}

void xpFrame::WriteProperties(PropertyBag& bag) const {
    const QFont ambientFont = m_host.AmbientFont();
    const auto write = [&](const PanelProperty& row) {
        bag.WriteProperty(row.sKey, row.Get(m_properties), row.BagDefault(ambientFont));
    };
    const auto writeAlways = [&](const PanelProperty& row) {
        bag.WriteProperty(row.sKey, row.Get(m_properties));
    };
    for (const PanelProperty& row : PanelPropertyTable()) {
        if (row.AlwaysWritten()) {
            writeAlways(row);
        } else {
            write(row);
        }
    }
    write(RowOf(&PanelProperties::HeaderText));
    writeAlways(RowOf(&PanelProperties::FooterText));
}

void xpFrame::ApplyThemeColors() {
    if (m_properties.UseCustomColors) {
        m_theme = CustomPanelColors(m_properties);
    } else if (IsTheme(m_properties.Appearence)) {
        m_theme = PanelTheme(m_properties.Appearence);
    }
}

// A panel within has the property as well.
void xpFrame::EnableChildren(bool value) {
    ForEachChild([value](QWidget& child) {
        if (auto* panel = qobject_cast<xpFrame*>(&child)) {
            panel->enabled(value);
        } else {
            child.setEnabled(value);
        }
    });
}

void xpFrame::Changed(const PanelProperty::Member& member) {
    Refresh();
    m_host.PropertyChanged(RowOf(member).sChangeName);
}

template <class Value>
void xpFrame::Set(Value PanelProperties::*member, Value value) {
    m_properties.*member = std::move(value);
    Changed(member);
}

void xpFrame::HeaderText(const QString& value) {
    setAccessibleName(value);
    Set(&PanelProperties::HeaderText, value);
}

void xpFrame::HeaderTextAlign(Integer value) {
    TakeTextFlags(m_headerFlags, value);
    Set(&PanelProperties::HeaderTextAlign, value);
}

void xpFrame::FooterTextAlign(Integer value) {
    TakeTextFlags(m_footerFlags, value);
    Set(&PanelProperties::FooterTextAlign, value);
}

void xpFrame::ClassicXPStyle(bool value) {
    if (value) m_properties.BackColor = vbButtonFace;
    Set(&PanelProperties::ClassicXPStyle, value);
}

void xpFrame::ZOrderOnFocus(bool value) {
    Set(&PanelProperties::ZOrderOnFocus, value);
    OnTop();
}

void xpFrame::ContainerResizable(bool value) {
    Set(&PanelProperties::ContainerResizable, value && !m_properties.ClassicXPStyle);
}

void xpFrame::Expandable(bool value) {
    m_collapsed = false;
    Set(&PanelProperties::Expandable, value && !m_properties.ClassicXPStyle);
}

void xpFrame::UseCustomColors(bool value) {
    m_properties.UseCustomColors = value;
    ApplyThemeColors();
    Changed(&PanelProperties::UseCustomColors);
}

void xpFrame::Appearence(Integer value) {
    m_properties.Appearence = value;
    ApplyThemeColors();
    Changed(&PanelProperties::Appearence);
}

void xpFrame::enabled(bool value) {
    m_properties.enabled = value;
    setEnabled(value);
    EnableChildren(value);
    Changed(&PanelProperties::enabled);
}

void xpFrame::HeaderTextFont(const QFont& value) { Set(&PanelProperties::HeaderTextFont, value); }
void xpFrame::HeaderTextColor(OleColor value) { Set(&PanelProperties::HeaderTextColor, value); }
void xpFrame::HeaderSize(Integer value) { Set(&PanelProperties::HeaderSize, value); }
void xpFrame::Closeable(bool value) { Set(&PanelProperties::Closeable, value); }
void xpFrame::HeaderVisible(bool value) { Set(&PanelProperties::HeaderVisible, value); }
void xpFrame::HeaderBackColor(OleColor value) { Set(&PanelProperties::HeaderBackColor, value); }
void xpFrame::HeaderFadeColor(OleColor value) { Set(&PanelProperties::HeaderFadeColor, value); }
void xpFrame::HeaderFillStyle(Integer value) { Set(&PanelProperties::HeaderFillStyle, value); }
void xpFrame::HeaderPicture(const PanelPicture& value) {
    Set(&PanelProperties::HeaderPicture, value);
}
void xpFrame::HeaderPictureSize(Integer value) { Set(&PanelProperties::HeaderPictureSize, value); }
void xpFrame::FooterText(const QString& value) { Set(&PanelProperties::FooterText, value); }
void xpFrame::FooterTextFont(const QFont& value) { Set(&PanelProperties::FooterTextFont, value); }
void xpFrame::FooterTextColor(OleColor value) { Set(&PanelProperties::FooterTextColor, value); }
void xpFrame::FooterSize(Integer value) { Set(&PanelProperties::FooterSize, value); }
void xpFrame::FooterVisible(bool value) { Set(&PanelProperties::FooterVisible, value); }
void xpFrame::HeaderPictureVisible(bool value) {
    Set(&PanelProperties::HeaderPictureVisible, value);
}
void xpFrame::ContainerPictureVisible(bool value) {
    Set(&PanelProperties::ContainerPictureVisible, value);
}
void xpFrame::ContainerMoveable(bool value) { Set(&PanelProperties::ContainerMoveable, value); }
void xpFrame::FooterBackColor(OleColor value) { Set(&PanelProperties::FooterBackColor, value); }
void xpFrame::FooterFadeColor(OleColor value) { Set(&PanelProperties::FooterFadeColor, value); }
void xpFrame::FooterFillStyle(Integer value) { Set(&PanelProperties::FooterFillStyle, value); }
void xpFrame::ContainerTextFont(const QFont& value) {
    Set(&PanelProperties::ContainerTextFont, value);
}
void xpFrame::ContainerBackColor(OleColor value) {
    Set(&PanelProperties::ContainerBackColor, value);
}
void xpFrame::ContainerFadeColor(OleColor value) {
    Set(&PanelProperties::ContainerFadeColor, value);
}
void xpFrame::ContainerFillStyle(Integer value) {
    Set(&PanelProperties::ContainerFillStyle, value);
}
void xpFrame::ContainerForeColor(OleColor value) {
    Set(&PanelProperties::ContainerForeColor, value);
}
void xpFrame::ContainerBorderColor(OleColor value) {
    Set(&PanelProperties::ContainerBorderColor, value);
}
void xpFrame::ContainerBorderStyle(Integer value) {
    Set(&PanelProperties::ContainerBorderStyle, value);
}
void xpFrame::ContainerShapeStyle(Long value) { Set(&PanelProperties::ContainerShapeStyle, value); }
void xpFrame::ContainerCornerRadius(Integer value) {
    Set(&PanelProperties::ContainerCornerRadius, value);
}
void xpFrame::ContainerPicture(const PanelPicture& value) {
    Set(&PanelProperties::ContainerPicture, value);
}
void xpFrame::ContainerPictureSize(Integer value) {
    Set(&PanelProperties::ContainerPictureSize, value);
}
void xpFrame::ContainerPictureBufferTop(Integer value) {
    Set(&PanelProperties::ContainerPictureBufferTop, value);
}
void xpFrame::ContainerPictureBufferLeft(Integer value) {
    Set(&PanelProperties::ContainerPictureBufferLeft, value);
}
void xpFrame::CollapseButtonColor(OleColor value) {
    Set(&PanelProperties::CollapseButtonColor, value);
}
void xpFrame::BackColor(OleColor value) { Set(&PanelProperties::BackColor, value); }

}  // namespace tavel
