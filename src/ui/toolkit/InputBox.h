#pragma once

#include <QString>

namespace tavel {

// Asks for a line of text and blocks until it is answered; empty on Cancel.
QString InputBox(const QString& prompt, const QString& title, const QString& defaultText);

}  // namespace tavel
