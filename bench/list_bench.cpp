// FillList until painted, beside a QTreeWidget filled in one go with the same texts.

#include "Ratio.h"
#include "library/Collections.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"

#include <QTreeView>
#include <QTreeWidget>
#include <string>
#include <vector>

namespace {

using namespace tavel;

std::vector<QStringList> TextsOf(const QTreeView& list) {
    std::vector<QStringList> rows;
    const QAbstractItemModel& model = *list.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells << model.index(row, column).data().toString();
        }
        rows.push_back(cells);
    }
    return rows;
}

void FillTree(QTreeWidget& tree, const std::vector<QStringList>& rows) {
    tree.clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const QStringList& row : rows) items.append(new QTreeWidgetItem(row));
    tree.addTopLevelItems(items);
    tree.viewport()->repaint();
}

void AddTrack(int number) {
    Music track;
    track.sName = "Title number " + std::to_string(number);
    track.sDBID = "mu_Titlerebmu" + std::to_string(1000000 + number) + "abcdefgh";
    track.sArtist = "An Artist of Some Length";
    track.sAlbum = "The Album";
    track.sFormat = "mp3";
    track.iSize = 4000000 + number * 37;
    track.sPath("C:\\Music\\Some folder\\" + track.sName + ".mp3");
    colMusic.Add(track.sDBID, track);
}

void CompareFilling(int rowCount) {
    ReleaseCollections();
    for (int i = 0; i < rowCount; ++i) AddTrack(i);

    frmMain& window = SingleWindow<frmMain>::Get();
    ShowNow(window);
    auto* list = window.findChild<QTreeView*>(QStringLiteral("grdItems"));
    window.SetupItemList(mtMusic);
    window.FillList(mtMusic);
    const std::vector<QStringList> texts = TextsOf(*list);

    QTreeWidget tree;
    tree.setColumnCount(6);
    tree.setRootIsDecorated(false);
    tree.setUniformRowHeights(true);
    tree.resize(list->size());
    ShowNow(tree);
    bench::Compare(
        "FillList of " + std::to_string(rowCount) + " rows until painted", "QTreeWidget", 9, 0.5,
        [&](int) {
            window.FillList(mtMusic);
            list->viewport()->repaint();
        },
        [&](int) { FillTree(tree, texts); });
}

}  // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    WireUpCalls();
    for (int rowCount : {10000, 30000}) CompareFilling(rowCount);
    return 0;
}
