#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "platform/Activity.h"
#include "ui/main/ThumbPicture.h"
#include "ui/main/frmMain.h"
#include "ui/main/frmThumb.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/SingleWindow.h"

namespace tavel {

void frmMain::ShowThumbFile(const std::string& sPath) {
    const Doing showing("Showing", sPath);
    imgThumb->setPixmap(LoadPicture(sPath));
}

void frmMain::LoadThumbnail(const std::string& sID) {
    if (iVidThumbMode < 2) return;
    if (sID == "multi") {
        ShowThumbFile(MultiThumbFile());
    } else {
        const std::string& sThumbPath = colVideo.Item(sID).sThumbPath;
        ShowThumbFile(sThumbPath.empty() ? NoThumbFile() : sThumbPath);
    }
    if (iVidThumbMode == 3) {
        PlaceThumbAtRow(grdItems->RowTop(grdItems->Current()) + 360, bThumbAbove);
    } else if (iVidThumbMode == 4) {
        m_layout.imgThumb.Left = m_layout.shpThumb.Left;
        m_layout.imgThumb.Top = m_layout.shpThumb.Top;
        Place(*imgThumb, m_layout.imgThumb);
    }
    imgThumb->show();
}

// The picture gets out of the pointer's way, to the other side of its row.
void frmMain::imgThumb_MouseMove() {
    if (iVidThumbMode != 3) return;
    const int top = grdItems->RowTop(grdItems->Current());
    if (bThumbAbove)
        PlaceThumbAtRow(top + 360, false);
    else
        PlaceThumbAtRow(top - m_layout.imgThumb.Height + 160, true);
}

// The top counts from the top of the list and is used without the list's own, so the picture stands
// that much higher: its upper edge touches the row, where the pointer meets it.
void frmMain::PlaceThumbAtRow(int top, bool bAbove) {
    m_layout.imgThumb.Left = m_layout.grdItems.Left + grdItems->RowLeft(grdItems->Current());
    m_layout.imgThumb.Top = top;
    Place(*imgThumb, m_layout.imgThumb);
    imgThumb->raise();
    bThumbAbove = bAbove;
}

void frmMain::mnuThumbnail_Click() { AssignThumbnail(sSelected); }

void frmMain::AssignThumbnail(const std::vector<std::string>& sIDs) {
    std::string sThumb;
    bool bMulti = false;
    if (sIDs.size() == 1)
        sThumb = colVideo.Item(sIDs[0]).sThumbPath;
    else
        CheckForMultiThumbs(sIDs, sThumb, bMulti);
    SingleWindow<frmThumb>::Get().GetNewThumbPath(bMulti ? MultiThumbFile() : sThumb, sIDs);
}

void frmMain::CheckForMultiThumbs(const std::vector<std::string>& sIDs, std::string& sThumb,
                                  bool& bMulti) {
    std::string sPath = "NOTDEFINED";
    bMulti = false;
    for (const std::string& sID : sIDs) {
        const std::string& sThumbPath = colVideo.Item(sID).sThumbPath;
        if (sPath == "NOTDEFINED") {
            sPath = sThumbPath;
        } else if (sThumbPath != sPath) {
            bMulti = true;
            return;
        }
    }
    sThumb = sPath;
}

}  // namespace tavel
