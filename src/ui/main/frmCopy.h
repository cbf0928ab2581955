#pragma once

#include <QWidget>
#include <string>

class QGroupBox;
class QLabel;
class QPushButton;

namespace tavel {

class ProgressBar;

// The progress of a transfer. Its own OK closes it and nothing else does: a transfer can't be
// stopped, and its end is to be seen.
class frmCopy : public QWidget {
    Q_OBJECT

  public:
    frmCopy();

    ProgressBar& CurrentBar() { return *pgbCurr; }
    ProgressBar& TotalBar() { return *pgbTotal; }
    void SetFile(const std::string& sText);
    void SetSubFile(const std::string& sText);
    void ShowSubFile(bool bVisible);
    void ShowFinish();
    void ShowOK();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void PlaceControls(QGroupBox& frame);

    ProgressBar* pgbCurr;
    ProgressBar* pgbTotal;
    QLabel* labFile;
    QLabel* labSubFile;
    QLabel* labFinish;
    QPushButton* cmdOK;
};

}  // namespace tavel
