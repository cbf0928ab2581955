#pragma once

#include <QWidget>

class QLineEdit;

namespace tavel {

class DriveList;

// Makes a memory stick known as a PSP's.
class frmNewPSP : public QWidget {
    Q_OBJECT

  public:
    frmNewPSP();

  private:
    void cmdOK_Click();

    QLineEdit* txtName;
    DriveList* drvPSP;
};

}  // namespace tavel
