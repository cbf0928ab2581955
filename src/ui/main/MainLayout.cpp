#include "ui/main/MainLayout.h"

#include "ui/toolkit/Twips.h"

#include <QWidget>

namespace tavel {

void Place(QWidget& control, const Box& box, const Box& panel) {
    const int left = Pixels(panel.Left + box.Left);
    const int top = Pixels(panel.Top + box.Top);
    control.setGeometry(left - Pixels(panel.Left), top - Pixels(panel.Top),
                        Pixels(panel.Left + box.Left + box.Width) - left,
                        Pixels(panel.Top + box.Top + box.Height) - top);
}

void MainLayout::ExpandSyncGrid(bool bExpand) {
    if (bExpand) {
        grdSync.Height = grdItems.Height - 120 - cmdSend.Height;
        cmdSend.Top = grdItems.Top + grdItems.Height - cmdSend.Height;
        cmdClear.Top = grdItems.Top + grdItems.Height - cmdClear.Height;
    } else {
        grdSync.Height = shpThumb.Top - 240 - cmdSend.Height;
        cmdSend.Top = shpThumb.Top - 60 - cmdSend.Height;
        cmdClear.Top = shpThumb.Top - 60 - cmdClear.Height;
        imgThumb.Left = shpThumb.Left;
        imgThumb.Top = shpThumb.Top;
    }
}

void MainLayout::ShowPSPCats(bool bShow) {
    picCatBack.Height =
        bShow ? picPSPCatBack.Top - 120 - picCatBack.Top : picPSPCatBack.Top + picPSPCatBack.Height;
    trvCat.Height = picCatBack.Height;
}

void MainLayout::FitRightView(int buttonWidth) {
    tbrRightView.Width = buttonWidth;
    tbrRightView.Left = FormWidth - 240 - buttonWidth;
}

}  // namespace tavel
