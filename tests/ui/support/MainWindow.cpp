#include "ui/support/MainWindow.h"

#include "core/PublicStuff.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QDir>
#include <QImage>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QSaveFile>
#include <utility>

namespace tavel::test {

namespace {

template <class T>
T& AddRecord(Collection<T>& records, const std::string& sID, const std::string& sName) {
    T record;
    record.sDBID = sID;
    record.sName = sName;
    return records.Add(sID, record);
}

template <class T>
void AddGroup(Collection<T>& groups, const std::string& sID, const std::vector<std::string>& sIDs,
              MediaType itemType) {
    T& group = AddRecord(groups, sID, "Group " + sID);
    group.SetCount(static_cast<Integer>(sIDs.size()));
    if (!sIDs.empty()) group.Members().Redim(static_cast<Integer>(sIDs.size() - 1), false);
    Integer place = 0;
    for (const std::string& sMember : sIDs) {
        group.Members().Set(place++, sMember);
        Item& item = ItemOf(itemType, sMember);
        item.Redim_sGroups(item.iNoGroups, true);
        item.Set_sGroups(item.iNoGroups++, sID);
    }
}

std::string Branch(const QTreeWidgetItem& item) {
    const auto& node = static_cast<const TreeNode&>(item);
    std::string text = node.Key() + "=" + FromQString(node.text(0));
    if (node.childCount() == 0) return text;
    text += node.isExpanded() ? "+(" : "-(";
    for (int i = 0; i < node.childCount(); ++i) {
        text += (i == 0 ? "" : " ") + Branch(*node.child(i));
    }
    return text + ")";
}

// Takes the failure message; all other prompts go on to the test's own.
class FailureBoxes : public Prompter {
  public:
    explicit FailureBoxes(Prompter& others) : m_others(others) {}

    Long Number() const { return m_number; }

    MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons, const QString& title) override {
        if (!text.startsWith(QLatin1String("Run-time error"))) {
            return m_others.MsgBox(text, buttons, title);
        }
        m_number = text.section(QLatin1Char('\''), 1, 1).toInt();
        return MsgBoxAnswer::OK;
    }
    QString InputBox(const QString& prompt, const QString& title, const QString& text) override {
        return m_others.InputBox(prompt, title, text);
    }
    FileAnswer PickFiles(const FileRequest& request) override {
        return m_others.PickFiles(request);
    }
    std::string PickFolder(const FolderRequest& request) override {
        return m_others.PickFolder(request);
    }

  private:
    Prompter& m_others;
    Long m_number = 0;
};

// The offscreen platform ends every drag at once. So the events of the drop are sent when the list
// has begun one, which is when it makes the object of the drag.
class DropWhileDragging : public QObject {
  public:
    DropWhileDragging(ListView& list, QWidget& target, QPoint position,
                      const std::function<void()>& underway)
        : m_target(target), m_position(position), m_underway(underway) {
        list.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded &&
            !static_cast<QChildEvent*>(event)->child()->isWidgetType()) {
            m_underway();
            Drop();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void Drop() {
        const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
        QDragEnterEvent enter(m_position, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        if (!m_target.acceptDrops()) return;
        QApplication::sendEvent(&m_target, &enter);
        if (!enter.isAccepted()) return;
        QDragMoveEvent move(m_position, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&m_target, &move);
        if (!move.isAccepted()) return;
        QDropEvent drop(m_position, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&m_target, &drop);
    }

    QWidget& m_target;
    QPoint m_position;
    const std::function<void()>& m_underway;
};

}  // namespace

MainWindowTest::MainWindowTest() {
    ReleaseCollections();
    Service<FileService>::Use(&files);
    gStyle = {"Verdanda", -1, -1};
    sDBFile = temp.DrivePath("db.txt");
    temp.Write("db.txt", "[watch]\r\ndelay=7\r\n");
}

MainWindowTest::~MainWindowTest() {
    SingleWindow<frmMain>::Unload();
    RunEvents();
    ReleaseCollections();
    Service<FileService>::Use(nullptr);
}

Photo& MainWindowTest::AddPhoto(const std::string& sID, const std::string& sName, Long iSize) {
    Photo& photo = AddRecord(colPhoto, sID, sName);
    photo.iSize = iSize;
    photo.iSizeW = 480;
    photo.iSizeH = 272;
    photo.sFormat = "jpg";
    photo.sPath("C:\\Pictures\\" + sName + ".jpg");
    return photo;
}

Video& MainWindowTest::AddVideo(const std::string& sID, const std::string& sName, Long iSize) {
    Video& video = AddRecord(colVideo, sID, sName);
    video.iSize = iSize;
    video.sFormat = "mp4";
    video.sPath("C:\\Videos\\" + sName + ".mp4");
    return video;
}

Music& MainWindowTest::AddMusic(const std::string& sID, const std::string& sName,
                                const std::string& sArtist) {
    Music& music = AddRecord(colMusic, sID, sName);
    music.iSize = 1500000;
    music.sArtist = sArtist;
    music.sAlbum = "Album";
    music.sFormat = "mp3";
    music.sPath("C:\\Music\\" + sName + ".mp3");
    return music;
}

void MainWindowTest::AddPhotosWithFiles() {
    for (const char* name : {"a", "b", "c", "d"}) {
        const std::string sFile = std::string(name) + ".jpg";
        temp.Write(sFile, name);
        AddPhoto(std::string("ph_") + name, name).sPath(temp.DrivePath(sFile));
    }
}

void MainWindowTest::AddMagazine(const std::string& sID, const std::vector<std::string>& sIDs) {
    AddGroup(colMagazine, sID, sIDs, mtPhoto);
}

void MainWindowTest::AddAlbum(const std::string& sID, const std::vector<std::string>& sIDs) {
    AddGroup(colPhotoAlbum, sID, sIDs, mtPhoto);
}

void MainWindowTest::AddSeries(const std::string& sID, const std::vector<std::string>& sIDs) {
    AddGroup(colVidSeries, sID, sIDs, mtVideo);
}

void MainWindowTest::AddPlaylist(const std::string& sID, const std::vector<std::string>& sIDs) {
    AddGroup(colPlaylist, sID, sIDs, mtMusic);
}

void MainWindowTest::PlugStick() {
    temp.Write("stick/TavelDataFile.tavel", "[Data]\r\nPSPName=Pocket\r\n");
    temp.Write("stick/psp/music/Tunes/one.mp3", "no tag");
    temp.Write("stick/psp/photo/Trip/one.jpg", "no picture");
    temp.Write("stick/MP_ROOT/100MNV01/M4V10001.mp4", "video");
    files.Plug('e', temp.HostPath("stick"));
}

// In one step each: another test program may be reading them.
void MainWindowTest::InstallPictures() {
    const QDir folder(QCoreApplication::applicationDirPath());
    ASSERT_TRUE(folder.mkpath(QStringLiteral("UI")));
    for (const auto& [name, width] :
         {std::pair("UI/NoThumb.bmp", NoThumbWidth), {"UI/multiThumb.bmp", MultiThumbWidth}}) {
        QImage picture(width, 12, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QSaveFile file(folder.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(picture.save(&file, "BMP"));
        ASSERT_TRUE(file.commit());
    }
}

frmMain& MainWindowTest::Open() {
    frmMain& window = SingleWindow<frmMain>::Get();
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
    return window;
}

Box MainWindowTest::PlaceOf(const char* control) {
    const QRect place = Find(Main(), control).geometry();
    return {Twips(place.x()), Twips(place.y()), Twips(place.width()), Twips(place.height())};
}

void MainWindowTest::ClickNode(TreeView& tree, const std::string& sKey, Qt::MouseButton button) {
    TreeNode& node = tree.Node(sKey);
    tree.scrollToItem(&node);
    QTest::mouseClick(tree.viewport(), button, {}, tree.visualItemRect(&node).center());
}

void MainWindowTest::ClickRow(ListView& list, Long row, Qt::KeyboardModifiers keys,
                              Qt::MouseButton button) {
    const QPoint point = list.visualRect(list.model()->index(row - 1, 0)).center();
    QTest::mouseClick(list.viewport(), button, keys, point);
}

void MainWindowTest::DoubleClickRow(Long row) {
    const QPoint point = PointOfRow(row);
    ClickRow(row);
    QTest::mouseDClick(grdItems().viewport(), Qt::LeftButton, {}, point);
    QTest::mouseRelease(grdItems().viewport(), Qt::LeftButton, {}, point);
}

QPoint MainWindowTest::PointOfRow(Long row) {
    return grdItems().visualRect(grdItems().model()->index(row - 1, 0)).center();
}

void MainWindowTest::Drag(Long row, QWidget& target, QPoint position,
                          const std::function<void()>& underway) {
    QWidget& source = *grdItems().viewport();
    const QPoint start = PointOfRow(row);
    const DropWhileDragging drop(grdItems(), target, position, underway);
    QTest::mousePress(&source, Qt::LeftButton, {}, start);
    for (int step = 1; step <= 2; ++step) {
        const QPoint point = start + QPoint(step * QApplication::startDragDistance(), 0);
        QMouseEvent move(QEvent::MouseMove, point, source.mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&source, &move);
    }
}

void MainWindowTest::Pick(std::initializer_list<const char*> names) {
    const auto click = [](QMenu& menu, QAction& action) {
        ASSERT_TRUE(menu.isVisible()) << FromQString(menu.objectName());
        ASSERT_TRUE(action.isVisible()) << FromQString(action.objectName());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
    };
    QMenu* open = nullptr;
    for (const char* name : names) {
        auto& action = Find<QAction>(Main(), name);
        if (open != nullptr) {
            click(*open, action);
        } else if (!action.menu()->isVisible()) {
            QMenuBar& bar = *Main().menuBar();
            QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(&action).center());
        }
        // A submenu opens a moment after the pointer has reached its entry.
        open = action.menu();
        if (open != nullptr) (void)QTest::qWaitFor([&] { return open->isVisible(); });
    }
}

std::string MainWindowTest::EntriesOf(const char* menu) {
    std::string names;
    for (const QAction* action : Find<QMenu>(Main(), menu).actions()) {
        if (action->isVisible()) names += FromQString(action->objectName()) + " ";
    }
    return names;
}

std::string MainWindowTest::Tree(TreeView& tree) { return Branch(tree.Node("master")); }

std::string MainWindowTest::TextOf(const QTreeWidgetItem& node) {
    return FromQString(node.text(0));
}

std::string MainWindowTest::RowsOf(const ListView& list) {
    std::string rows;
    for (Long row = 1; row <= list.Count(); ++row) {
        rows += (row == 1 ? "" : "|") + list.Cell(row, 0);
    }
    return rows;
}

std::string MainWindowTest::CellsOf(const ListView& list, Long row) {
    std::string cells = list.Cell(row, 0);
    for (int cell = 1; cell < list.CellCount(row); ++cell) cells += "|" + list.Cell(row, cell);
    return cells;
}

std::string MainWindowTest::Members(const Group& group) {
    std::string members;
    for (Integer i = 0; i < group.Count(); ++i) members += group.Members().Get(i) + " ";
    return members;
}

Long MainWindowTest::FatalOf(const std::function<void()>& work) {
    const FatalEnds ends;
    FailureBoxes boxes(prompts);
    Service<Prompter>::Use(&boxes);
    work();
    Service<Prompter>::Use(&prompts);
    return boxes.Number();
}

}  // namespace tavel::test
