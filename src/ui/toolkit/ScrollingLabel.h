#pragma once

#include <QPlainTextEdit>

namespace tavel {

// A label for as many words as there are: lines longer than it is wide wrap, and what does not fit
// scrolls, by wheel or, once there is something to scroll, by keyboard. Only what is in view is
// laid out, so that a text of megabytes costs no more than one of a page.
class ScrollingLabel : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit ScrollingLabel(QWidget* parent = nullptr);

    // A word of many lines can be broken every now and then: looking for the end of one takes far
    // longer than its length.
    void SetText(const QString& text);
};

}  // namespace tavel
