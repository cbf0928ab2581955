#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QTabBar;

namespace tavel {

// Four of the options, on two tabs. OK brings them to db.txt and into effect.
class frmOptions : public QWidget {
    Q_OBJECT

  public:
    frmOptions();

  private:
    void AddTabs();
    void AddPanels();
    void PlaceControls();
    void CentreOnScreen();
    void ShowFlags();
    void tbsOptions_Click();
    void SelectNextTab();
    void cmdOK_Click();

    QTabBar* tbsOptions;
    // Found by the property "tag"; those without one are never shown.
    std::array<QWidget*, 5> picOptions{};
    QCheckBox* chkGeneral_ZipGroup;
    QCheckBox* chkScan_AutoGroup;
    QCheckBox* chkScan_ScanOnStart;
    QCheckBox* chkScan_Hidden;
};

}  // namespace tavel
