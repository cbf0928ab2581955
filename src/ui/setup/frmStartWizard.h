#pragma once

#include "platform/Numbers.h"

#include <QWidget>
#include <array>
#include <string>

class QBoxLayout;
class QCheckBox;
class QFrame;
class QLineEdit;
class QPushButton;

namespace tavel {

class DriveList;
class ScrollingLabel;

// The pages of the first start. Its finish opens frmMain; closing it ends the program.
class frmStartWizard : public QWidget {
    Q_OBJECT

  public:
    frmStartWizard();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    static constexpr Integer PageCount = 9;

    void PlaceControls();
    void AddPage(Integer number);
    QBoxLayout* AddPanel(Integer page, const char* name);
    void AddNamePage();
    void AddWatchPage();
    void AddLibraryPage();
    void AddDrivePage();
    void AddFolderPage();
    void AddOptionsPage();

    // Shows the page, or takes the number back by one when the file has no words for it.
    void LoadPage(const std::string& sFile, Integer& iNumber);
    void ShowPage(Integer number);
    void FocusPage(Integer number);
    void WizardFinished(bool& bOK);
    void SpecialEvent();
    void CreateDBFolders(bool& bOK);
    void cmdNext_Click();
    void cmdPrev_Click();
    void cmdBrowse_Click();
    static void cmdWatch_Click();

    std::string sWizardFile;
    Integer iPage = 1;
    Integer iLastPage = PageCount;

    QWidget* m_pages;
    // By the number of the page; 0 is never shown.
    std::array<QFrame*, PageCount + 1> fraWizard{};
    std::array<ScrollingLabel*, PageCount + 1> labText{};
    QLineEdit* txtName;
    DriveList* drvPSP;
    QLineEdit* txtFolderPath;
    QCheckBox* chkAutoGroup;
    QCheckBox* chkScanOnStart;
    QPushButton* cmdPrev;
    QPushButton* cmdNext;
};

}  // namespace tavel
