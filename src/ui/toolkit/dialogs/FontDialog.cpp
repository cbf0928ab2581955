#include "ui/toolkit/dialogs/FontDialog.h"

#include "ui/toolkit/Controls.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/dialogs/Parts.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLineEdit>
#include <QValidator>
#include <algorithm>

namespace tavel {

namespace {

// Qt's dialog looks for a style by its name, and takes the first in its list for a font that has
// none, be it italic.
QFont WithStyleName(QFont font) {
    if (font.styleName().isEmpty()) font.setStyleName(QFontInfo(font).styleName());
    return font;
}

// A style's name would outweigh what its receiver makes bold or italic; most styles are told by
// weight and slant as well.
QFont WithoutStyleName(const QFont& font) {
    QFont plain = font;
    plain.setStyleName(QString());
    return QFontInfo(plain).styleName() == font.styleName() ? plain : font;
}

bool IsSameFace(const QFont& one, const QFont& other) {
    return one.families() == other.families() &&
           QFontDatabase::styleString(one) == QFontDatabase::styleString(other);
}

qreal PointsOf(const QFont& font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

}  // namespace

FontDialog::FontDialog(const FontRequest& request)
    : QFontDialog(request.owner),
      m_first(request.font),
      m_minSize(request.minSize),
      m_maxSize(request.maxSize) {
    setObjectName(QStringLiteral("FontDialog"));
    setOption(DontUseNativeDialog);
    constexpr Long scalable =
        fontFlag::PrinterFonts | fontFlag::ScalableOnly | fontFlag::TrueTypeOnly;
    setOption(ScalableFonts, (request.flags & scalable) != 0);
    setOption(MonospacedFonts, (request.flags & fontFlag::FixedPitchOnly) != 0);
    setCurrentFont(WithStyleName(request.font));
    m_shown = currentFont();
    HearSize();
    const bool effects = (request.flags & fontFlag::Effects) != 0;
    WithPart<QCheckBox>(*this, nullptr,
                        [effects](QCheckBox& first) { first.parentWidget()->setVisible(effects); });
    NameLines();
    // Alone it would be as low as its frame.
    WithPart(*this, "qt_fontDialog_sampleEdit",
             [](QWidget& sample) { sample.setMinimumHeight(Pixels(900)); });
    PlainButtons(*this);
    resize(Pixels(7500), Pixels(5400));
}

// What is chosen stands in lines that cannot be typed into; Qt's captions are those of the lists.
void FontDialog::NameLines() {
    QStringList names{tr("Font"), tr("Font style")};
    for (QLineEdit* line : findChildren<QLineEdit*>()) {
        if (line->isReadOnly() && !names.isEmpty()) line->setAccessibleName(names.takeFirst());
    }
}

// The one line that takes a number. It may be typed anew as it stands.
void FontDialog::HearSize() {
    for (QLineEdit* line : findChildren<QLineEdit*>()) {
        if (line->validator() == nullptr) continue;
        connect(line, &QLineEdit::textChanged, this, [this] { m_isSizeTouched = true; });
    }
}

// Qt's dialog knows the styles of a list and whole points alone. What nobody has touched stays.
QFont FontDialog::Font() const {
    const QFont chosen = currentFont();
    QFont font = IsSameFace(chosen, m_shown) ? m_first : WithoutStyleName(chosen);
    if (m_isSizeTouched)
        font.setPointSizeF(chosen.pointSizeF());
    else if (m_first.pixelSize() > 0)
        font.setPixelSize(m_first.pixelSize());
    else
        font.setPointSizeF(m_first.pointSizeF());
    font.setUnderline(chosen.underline());
    font.setStrikeOut(chosen.strikeOut());
    return font;
}

bool FontDialog::SizeIsAllowed() const {
    const qreal size = PointsOf(Font());
    return size >= m_minSize && (m_maxSize == 0 || size <= m_maxSize);
}

void FontDialog::done(int result) {
    if (result == Rejected || SizeIsAllowed()) {
        QFontDialog::done(result);
        return;
    }
    MsgBox(m_maxSize == 0 ? tr("The size must be at least %1 points.").arg(m_minSize)
                          : tr("The size must be between %1 and %2 points.")
                                .arg(std::max(m_minSize, 1))
                                .arg(m_maxSize),
           MsgBoxButtons::OK, windowTitle());
}

}  // namespace tavel
