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

QString OneLine(QString text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsLineBreak(text.at(i))) text[i] = QLatin1Char(' ');
    }
    return text;
}

// A tip guesses from its text whether it is HTML, so nothing is left to guess.
QString TipOf(const QString& text) {
    return QStringLiteral("<p style=\"white-space: pre-wrap\">") + text.toHtmlEscaped() +
           QStringLiteral("</p>");
}

}  // namespace tavel
