#pragma once

#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <QFontDialog>

namespace tavel {

// The box in which the user picks a font: Qt's own dialog, which stays for a size that is not
// allowed.
class FontDialog : public QFontDialog {
    Q_OBJECT

  public:
    explicit FontDialog(const FontRequest& request);

    // What was picked, after the dialog was accepted.
    QFont Font() const;

  protected:
    void done(int result) override;

  private:
    void NameLines();
    void HearSize();
    bool SizeIsAllowed() const;

    QFont m_first;  // as requested
    QFont m_shown;  // as Qt's dialog makes of it
    bool m_isSizeTouched = false;
    int m_minSize;
    int m_maxSize;
};

}  // namespace tavel
