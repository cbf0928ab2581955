#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/dialogs/CDLG.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

namespace tavel {

namespace {

constexpr Long colorInit = 0x1;
constexpr Long solidColor = 0x80;
constexpr Long anyColor = 0x100;
constexpr Long hookAndTemplates = 0x10 | 0x20 | 0x40;

}  // namespace

bool CDLG::VBChooseColor(Long& Color, bool AnyColor, bool FullOpen, bool DisableFullOpen,
                         QWidget* Owner, Long flags, bool, EventSink*) {
    Begin();
    InitCustomColors();
    ColorRequest request;
    request.owner = Owner;
    request.color = FromOleColor(static_cast<std::uint32_t>(Color));
    for (std::size_t i = 0; i < m_customColors.size(); ++i)
        request.custom[i] = FromOleColor(static_cast<std::uint32_t>(m_customColors[i]));
    request.flags = (flags & ~hookAndTemplates) | colorInit | (AnyColor ? anyColor : solidColor) |
                    (FullOpen ? colorFlag::FullOpen : 0) |
                    (DisableFullOpen ? colorFlag::PreventFullOpen : 0);

    const ColorAnswer answer = Service<CommonDialogs>::Get().PickColor(request);
    for (std::size_t i = 0; i < m_customColors.size(); ++i)
        m_customColors[i] = ToOleColor(answer.custom[i]);
    const bool chosen = End(answer);
    Color = chosen ? ToOleColor(answer.color) : -1;
    return chosen;
}

Long CDLG::CustomColor(Long iValue) {
    InitCustomColors();
    const auto index = static_cast<std::size_t>(iValue);
    return index < m_customColors.size() ? m_customColors[index] : -1;
}

void CDLG::CustomColor(Long iValue, Long color) {
    InitCustomColors();
    const auto index = static_cast<std::size_t>(iValue);
    if (index < m_customColors.size()) m_customColors[index] = color;
}

void CDLG::InitCustomColors() {
    if (m_customColorsReady) return;
    for (std::size_t i = 0; i < m_customColors.size(); ++i)
        m_customColors[i] = ToOleColor(SystemColor(static_cast<int>(i)));
    m_customColorsReady = true;
}

}  // namespace tavel
