#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;

namespace tavel {

class FolderList;

// The folders that are scanned for new media, and how often. The check boxes are kept for each
// folder's number and shown again; a scan does not read them.
class frmWatchFolders : public QWidget {
    Q_OBJECT

  public:
    frmWatchFolders();

  private:
    QGroupBox* BoxesFrame();
    QGroupBox* DelayFrame();
    void PlaceControls();
    void ShowStored();
    void cmdAddFolder_Click();
    void cmdDelFolder_Click();
    void lstFolders_Click();
    void cmdOK_Click();
    void Store();

    FolderList* lstFolders;
    QCheckBox* chkPhoto;
    QCheckBox* chkMusic;
    QCheckBox* chkVideo;
    QComboBox* cmbScanDelay;
};

}  // namespace tavel
