#pragma once

#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <QColorDialog>
#include <QList>

class QPushButton;

namespace tavel {

// The box in which the user picks a colour: Qt's own dialog. Unless it is asked for in full it
// begins with the colours that are there, and a button opens up what mixes one.
class ColorDialog : public QColorDialog {
    Q_OBJECT

  public:
    explicit ColorDialog(const ColorRequest& request);

    // The sixteen colours that Qt keeps, which the user may have changed.
    static CustomColors Custom();
    static void SetCustom(const CustomColors& custom);

  private:
    void FoldUp(bool mayBeOpened);
    void OpenUp();

    QList<QWidget*> m_mixing;
    QPushButton* cmdDefine = nullptr;
};

}  // namespace tavel
