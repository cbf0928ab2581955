// What lists and trees cost when they grow, beside a QTreeWidget that does the same.

#include "Ratio.h"
#include "library/Collections.h"
#include "library/Groups.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/TreeView.h"

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

std::string PictureID(int number) { return "ph_" + std::to_string(1000000 + number); }

void AddPicture(int number) {
    Photo picture;
    picture.sDBID = PictureID(number);
    picture.sName = "Picture number " + std::to_string(number);
    colPhoto.Add(picture.sDBID, picture);
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

// From the last row up, as a command walks the selected rows. Ours loses its current row each time;
// the rival keeps its own, or it would take a minute.
void CompareRemoving(int rowCount) {
    ReleaseCollections();
    for (int i = 0; i < rowCount; ++i) AddTrack(i);
    frmMain& window = SingleWindow<frmMain>::Get();
    ShowNow(window);
    auto* list = window.findChild<ListView*>(QStringLiteral("grdItems"));
    window.SetupItemList(mtMusic);
    window.FillList(mtMusic);
    const std::vector<QStringList> texts = TextsOf(*list);

    QTreeWidget tree;
    tree.setColumnCount(6);
    tree.setUniformRowHeights(true);
    tree.resize(list->size());
    ShowNow(tree);
    const auto half = [&](auto removeRow) {
        for (int row = rowCount - 1; row >= rowCount / 2; --row) removeRow(row);
    };
    const auto prepare = [&] {
        window.FillList(mtMusic);
        list->setCurrentIndex(list->model()->index(rowCount - 1, 0));
        FillTree(tree, texts);
        tree.setCurrentItem(tree.topLevelItem(0));
        tree.scrollToBottom();
    };
    prepare();
    bench::Compare(
        "Taking " + std::to_string(rowCount / 2) + " of " + std::to_string(rowCount) +
            " rows out of a list one by one",
        "QTreeWidget", 3, 0,
        [&](int) {
            half([&](int row) { list->Remove(list->Key(row + 1)); });
            list->viewport()->repaint();
        },
        [&](int) {
            half([&](int row) { delete tree.takeTopLevelItem(row); });
            tree.viewport()->repaint();
        },
        [&](int) { prepare(); });
}

void CompareGrouping(int groupCount) {
    frmMain& window = SingleWindow<frmMain>::Get();
    ShowNow(window);
    auto* categories = window.findChild<TreeView*>(QStringLiteral("trvCat"));
    categories->Node("magazines").setExpanded(true);

    QTreeWidget tree;
    tree.setUniformRowHeights(true);
    tree.resize(categories->size());
    ShowNow(tree);
    auto* parent = new QTreeWidgetItem(&tree);
    parent->setExpanded(true);
    const auto prepare = [&] {
        ReleaseCollections();
        for (int i = 0; i < groupCount; ++i) AddPicture(i);
        window.RefreshCats();
        qDeleteAll(parent->takeChildren());
    };
    prepare();
    bench::Compare(
        "`MakeGroup` with the main window, " + std::to_string(groupCount) + " times, until painted",
        "QTreeWidget given as many nodes", 3, 0,
        [&](int) {
            for (int i = 0; i < groupCount; ++i) MakeGroup({PictureID(i)}, "Group", mtMagazine);
            categories->viewport()->repaint();
        },
        [&](int) {
            for (int i = 0; i < groupCount; ++i) {
                parent->addChild(new QTreeWidgetItem({QStringLiteral("Group")}));
            }
            tree.viewport()->repaint();
        },
        [&](int) { prepare(); });
}

}  // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    WireUpCalls();
    for (int rowCount : {10000, 30000}) CompareFilling(rowCount);
    for (int rowCount : {16000, 32000}) CompareRemoving(rowCount);
    for (int groupCount : {2000, 4000}) CompareGrouping(groupCount);
    return 0;
}
