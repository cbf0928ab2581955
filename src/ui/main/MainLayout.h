#pragma once

class QWidget;

namespace tavel {

// A control's place in its parent, in twips.
struct Box {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

// Each side becomes pixels where it stands in the window, so that what touches goes on touching and
// what fills its panel goes on filling it. `panel` is the place of the panel that holds the
// control.
void Place(QWidget& control, const Box& box, const Box& panel = {});

// Where everything in frmMain stands when it loads, and how the two columns at its sides make room
// for what comes and goes in them.
struct MainLayout {
    // Nothing moves when the window changes, so it can't: this is all of its client area.
    static constexpr int ClientWidth = 14760;
    static constexpr int ClientHeight = 8205;
    // The window with the borders that it is laid out for.
    static constexpr int FormWidth = ClientWidth + 90;

    Box picCatBack{120, 120, 2415, 6615};
    Box trvCat{0, 0, 2415, 6615};
    Box picPSPCatBack{120, 3480, 2415, 3255};
    Box trvPSPCat{0, 0, 2415, 3255};
    Box grdItems{2640, 120, 8895, 6615};
    Box grdSync{11640, 120, 3015, 4095};
    Box grdAutoSync{11640, 120, 3015, 4095};
    Box tbrRightView{12960, 120, 1650, 360};
    Box cmdSend{11640, 4320, 2295, 495};
    Box cmdClear{14040, 4320, 615, 495};
    Box imgThumb{12120, 5160, 1935, 1335};
    Box shpThumb{11880, 4920, 135, 135};
    Box Frame1{8160, 6840, 6495, 1335};
    Box Image1{240, 6960, 7710, 1110};

    // True: the transfer list takes the whole height of its column. False: it ends above shpThumb,
    // and imgThumb stands there.
    void ExpandSyncGrid(bool bExpand);

    // The device's tree lies beneath the library's, which is made short enough to uncover it or
    // long enough to lie over it. Covering doesn't take off the library's top, so that it reaches
    // that much further down than the other.
    void ShowPSPCats(bool bShow);

    // The toolbar stays at the right edge, whatever the width of its button.
    void FitRightView(int buttonWidth);
};

}  // namespace tavel
