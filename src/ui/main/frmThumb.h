#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QLineEdit;

namespace tavel {

class ThumbPicture;

// Gives one or several videos a thumbnail, which is made of a picture that the user chooses.
class frmThumb : public QWidget {
    Q_OBJECT

  public:
    frmThumb();

    // Opens the dialog for these videos and returns at once. sCurrent is the picture to begin with,
    // or empty. Fails as the file service does, or with 481, where it can't be shown.
    void GetNewThumbPath(const std::string& sCurrent, const std::vector<std::string>& sIDs);

    // The last THM that was made, or was to be made. It outlives the dialog: OK assigns it, Cancel
    // and the next browse delete it, whichever dialog it comes from.
    static inline std::string sNewThumbPath;

  private:
    void PlaceControls();
    void KeepFocus();
    void cmdBrowse_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::vector<std::string> sThumbIDs;
    QLineEdit* txtPath;
    ThumbPicture* imgThumb;
};

}  // namespace tavel
