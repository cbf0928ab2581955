#pragma once

#include "support/FaultyFileService.h"
#include "support/Support.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/FolderDialog.h"

#include <gtest/gtest.h>

#include <QTreeWidget>

namespace tavel::test {

// The toolkit's box that picks a folder, on a stick e: with some.
class FolderPickers : public ::testing::Test {
  protected:
    FolderPickers() {
        folder.Write("photos/2006/a.jpg", "");
        folder.Write("Music/b.mp3", "");
        folder.Write("top.txt", "");
        folder.Write(".hidden/c", "");
        service.Plug('e', folder.HostPath());
        Service<FileService>::Use(&service);
        request.title = QStringLiteral("Select a folder");
    }
    ~FolderPickers() override { Service<FileService>::Use(nullptr); }

    static QTreeWidget& Tree(QWidget& dialog) { return Find<QTreeWidget>(dialog, "trvFolders"); }

    static QTreeWidgetItem* Child(QTreeWidgetItem* parent, const char* name) {
        for (int i = 0; i < parent->childCount(); ++i) {
            if (parent->child(i)->text(0) == QLatin1String(name)) return parent->child(i);
        }
        return nullptr;
    }

    // The drive e: opened up.
    static QTreeWidgetItem* Stick(QWidget& dialog) {
        QTreeWidget& tree = Tree(dialog);
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            QTreeWidgetItem* drive = tree.topLevelItem(i);
            if (!drive->text(0).startsWith(QLatin1String("e:"))) continue;
            drive->setExpanded(true);
            return drive;
        }
        return nullptr;
    }

    static QStringList Names(const QTreeWidgetItem* parent) {
        QStringList names;
        for (int i = 0; i < parent->childCount(); ++i) names << parent->child(i)->text(0);
        return names;
    }

    TempFolder folder;
    FaultyFileService service;
    FolderRequest request;
};

}  // namespace tavel::test
