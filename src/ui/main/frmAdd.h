#pragma once

#include <QWidget>
#include <string>

class QCheckBox;
class QLabel;

namespace tavel {

// The progress of adding. A fresh window has its cancel flag clear. Its close box is Cancel, which
// leaves it there until the adding has taken notice.
class frmAdd : public QWidget {
    Q_OBJECT

  public:
    frmAdd();

    void SetPath(const std::string& sPath);
    bool ExitChecked() const;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QLabel* labPath;
    QCheckBox* chkExit;  // never seen: the cancel flag
};

}  // namespace tavel
