#include "ui/toolkit/ShownText.h"

namespace tavel {

namespace {

bool IsLineBreak(QChar c) {
    switch (c.unicode()) {
        case u'\n':
        case u'\v':
        case u'\f':
        case u'\r':
        case u'\x85':
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            return true;
        default:
            return false;
    }
}

}  // namespace

QString OneLine(const QString& text) {
    QString shown = text.left(MaxShown);
    if (shown.size() < text.size() && shown.back().isHighSurrogate()) shown.chop(1);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        if (IsLineBreak(shown.at(i))) shown[i] = QLatin1Char(' ');
    }
    return shown;
}

// A tip guesses from its text whether it is HTML, so nothing is left to guess.
QString TipOf(const QString& text) {
    return QStringLiteral("<p style=\"white-space: pre-wrap\">") + text.toHtmlEscaped() +
           QStringLiteral("</p>");
}

}  // namespace tavel
