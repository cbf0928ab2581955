#include "ui/toolkit/FolderDialog.h"

#include "core/PublicStuff.h"
#include "platform/Failure.h"
#include "ui/toolkit/Controls.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tavel {

namespace {

constexpr int pathRole = Qt::UserRole;        // drive path
constexpr int unreadRole = Qt::UserRole + 1;  // a folder that was not looked into yet

std::string PathOf(const QTreeWidgetItem& item) {
    return FromQString(item.data(0, pathRole).toString());
}

QTreeWidgetItem* ChildWithPath(const QTreeWidgetItem& parent, const std::string& path) {
    for (int i = 0; i < parent.childCount(); ++i) {
        if (EqualsIgnoringCase(PathOf(*parent.child(i)), path)) return parent.child(i);
    }
    return nullptr;
}

}  // namespace

FolderDialog::FolderDialog(const FolderRequest& request)
    : QDialog(request.owner), m_callback(request.callback), m_includeFiles(request.includeFiles) {
    setObjectName(QStringLiteral("FolderDialog"));
    setWindowTitle(tr("Browse for Folder"));
    BuildControls(request);
    ListDrives();
    connect(trvFolders, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { ReadFolder(*item); });
    connect(trvFolders, &QTreeWidget::currentItemChanged, this, [this] { SelectionChanged(); });
    Select(oFSO().FromHostPath(FromQString(QDir::homePath())));
    resize(Pixels(6000), Pixels(6900));
}

void FolderDialog::BuildControls(const FolderRequest& request) {
    auto* labTitle = new QLabel(request.title, this);
    labTitle->setObjectName(QStringLiteral("labTitle"));
    labTitle->setTextFormat(Qt::PlainText);
    labTitle->setWordWrap(true);

    labStatus = new ElidedLabel(this);
    labStatus->setObjectName(QStringLiteral("labStatus"));
    labStatus->setVisible(m_callback != nullptr);

    trvFolders = new QTreeWidget(this);
    trvFolders->setObjectName(QStringLiteral("trvFolders"));
    trvFolders->setAccessibleName(tr("Folders"));
    trvFolders->setHeaderHidden(true);
    trvFolders->setUniformRowHeights(true);
    trvFolders->setItemDelegate(new LabelDelegate(trvFolders));
    trvFolders->header()->setStretchLastSection(true);
    labTitle->setBuddy(trvFolders);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    cmdOK = buttons->button(QDialogButtonBox::Ok);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (request.newStyle) {
        auto* cmdNewFolder =
            buttons->addButton(tr("Make &New Folder"), QDialogButtonBox::ActionRole);
        cmdNewFolder->setObjectName(QStringLiteral("cmdNewFolder"));
        cmdNewFolder->setAutoDefault(false);
        connect(cmdNewFolder, &QPushButton::clicked, this, [this] { MakeNewFolder(); });
    }

    PlainButtons(*this);

    auto* column = new QVBoxLayout(this);
    column->addWidget(labTitle);
    column->addWidget(labStatus);
    column->addWidget(trvFolders);
    column->addWidget(buttons);
}

void FolderDialog::ListDrives() {
    for (const std::string& text : oFSO().DriveTexts())
        AddItem(nullptr, text, text.substr(0, 2) + "\\", true);
}

QTreeWidgetItem* FolderDialog::AddItem(QTreeWidgetItem* parent, const std::string& name,
                                       const std::string& path, bool isFolder) {
    static const QFileIconProvider icons;
    auto* item = new QTreeWidgetItem({ToQString(name)});
    item->setData(0, pathRole, ToQString(path));
    item->setData(0, unreadRole, isFolder);
    item->setIcon(0, icons.icon(parent == nullptr ? QFileIconProvider::Drive
                                : isFolder        ? QFileIconProvider::Folder
                                                  : QFileIconProvider::File));
    if (isFolder) item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    if (parent != nullptr)
        parent->addChild(item);
    else
        trvFolders->addTopLevelItem(item);
    return item;
}

// A folder that can't be read, or a drive that has gone, looks empty.
void FolderDialog::ReadFolder(QTreeWidgetItem& item) {
    if (!item.data(0, unreadRole).toBool()) return;
    item.setData(0, unreadRole, false);
    try {
        const FolderContents contents = oFSO().GetFolder(PathOf(item));
        for (const FolderEntry& folder : contents.SubFolders) {
            if (folder.Name.rfind('.', 0) != 0) AddItem(&item, folder.Name, folder.Path, true);
        }
        for (const FileEntry& file : contents.Files) {
            if (m_includeFiles && !file.Hidden) AddItem(&item, file.Name, file.Path, false);
        }
    } catch (const Failure&) {
        item.takeChildren();
    }
    if (item.childCount() == 0)
        item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

std::string FolderDialog::Path() const {
    const QTreeWidgetItem* item = trvFolders->currentItem();
    return item == nullptr ? std::string() : PathOf(*item);
}

std::string FolderDialog::StablePath() const { return oFSO().StablePath(Path()); }

// Opens the tree up along the path, a drive and then a folder at a time. A hidden folder on the way
// is not in the tree yet and is put there.
void FolderDialog::Select(const std::string& path) {
    if (!oFSO().FolderExists(path)) return;
    std::vector<std::string> parts = Split(path, '\\');
    std::string reached = parts.front() + "\\";
    QTreeWidgetItem* item = ChildWithPath(*trvFolders->invisibleRootItem(), reached);
    if (item == nullptr) return;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (parts[i].empty()) continue;
        ReadFolder(*item);
        item->setExpanded(true);
        reached += (reached.back() == '\\' ? "" : "\\") + parts[i];
        QTreeWidgetItem* next = ChildWithPath(*item, reached);
        item = next != nullptr ? next : AddItem(item, parts[i], reached, true);
    }
    trvFolders->setCurrentItem(item);
    item->setExpanded(true);
    trvFolders->scrollToItem(item, QAbstractItemView::PositionAtTop);
}

void FolderDialog::SetStatus(const std::string& text) { labStatus->setText(ToQString(text)); }

// Scrolling to the selection needs the window's real size, so the picker is ready once it shows.
void FolderDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (m_ready) return;
    m_ready = true;
    trvFolders->setFocus();
    if (trvFolders->currentItem() != nullptr)
        trvFolders->scrollToItem(trvFolders->currentItem(), QAbstractItemView::PositionAtTop);
    Notify(FolderPickerReady);
    SelectionChanged();
}

void FolderDialog::SelectionChanged() {
    cmdOK->setEnabled(trvFolders->currentItem() != nullptr && !IsPathTooLong(StablePath()));
    if (m_ready) Notify(FolderPickerSelectionChanged);
}

void FolderDialog::Notify(Long message) {
    if (m_callback != nullptr) m_callback(*this, message, Path());
}

void FolderDialog::MakeNewFolder() {
    QTreeWidgetItem* parent = trvFolders->currentItem();
    const QString name = InputBox(tr("Name of the new folder:"), windowTitle(), tr("New Folder"));
    if (parent == nullptr || name.trimmed().isEmpty()) return;
    const std::string parentPath = PathOf(*parent);
    const std::string path =
        parentPath + (parentPath.back() == '\\' ? "" : "\\") + FromQString(name.trimmed());
    try {
        oFSO().CreateFolder(path);
    } catch (const Failure& failure) {
        MsgBox(ToQString(failure.Description()));
        return;
    }
    Select(path);
}

}  // namespace tavel
