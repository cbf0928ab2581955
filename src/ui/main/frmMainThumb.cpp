#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/Collections.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/ListView.h"

#include <QLabel>

namespace tavel {

namespace {

std::string UIFile(const char* name) { return GetAppPath() + "UI\\" + name; }

}  // namespace

std::string frmMain::NoThumbFile() { return UIFile("NoThumb.bmp"); }

void frmMain::ShowThumbFile(const std::string& sPath) {
    const std::string bytes = oFSO().ReadWhole(sPath);
    QPixmap picture;
    if (!picture.loadFromData(QByteArray::fromStdString(bytes))) Fail(failure::InvalidPicture);
    imgThumb->setPixmap(picture);
}

void frmMain::LoadThumbnail(const std::string& sID) {
    if (iVidThumbMode < 2) return;
    if (sID == "multi") {
        ShowThumbFile(UIFile("multiThumb.bmp"));
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

// The top counts from the top of the list, without the list's own; so the picture stands a little
// higher than its row, and what is in the way of the pointer is the row's right part alone.
void frmMain::PlaceThumbAtRow(int top, bool bAbove) {
    m_layout.imgThumb.Left = m_layout.grdItems.Left + grdItems->RowLeft(grdItems->Current());
    m_layout.imgThumb.Top = top;
    Place(*imgThumb, m_layout.imgThumb);
    imgThumb->raise();
    bThumbAbove = bAbove;
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
