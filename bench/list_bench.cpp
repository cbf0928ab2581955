// FillList until painted, beside a QTreeWidget filled in one go with the same texts.

#include "Ratio.h"
#include "SampleLibrary.h"
#include "core/LogWindow.h"
#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/UpCall.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmMain.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"

#include <QFileInfo>
#include <QTreeView>
#include <QTreeWidget>
#include <fstream>
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

void CompareFilling(int rowCount) {
    const std::string path = "list_bench_db.txt";
    std::ofstream(path, std::ios::binary) << bench::SampleLibrary(rowCount);
    sDBFile = HostFileService().FromHostPath(
        QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString());
    ReleaseCollections();
    LoadDB();

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
