#pragma once

#include <QWidget>
#include <string>

class QCheckBox;
class QLabel;

namespace tavel {

// The progress of adding. A fresh window has its cancel flag clear.
class frmAdd : public QWidget {
    Q_OBJECT

  public:
    frmAdd();

    void SetPath(const std::string& sPath);
    bool ExitChecked() const;

  private:
    QLabel* labPath;
    QCheckBox* chkExit;  // never seen: the cancel flag
};

}  // namespace tavel
