// BackgroundScan with the main window open: over files that the library has, beside find listing
// the same tree; over new ones with automatic groups, beside AddFolder without; and how long a
// click waits while it runs. OK of the watch folders, beside writing the file's bytes once.

#include "Ratio.h"
#include "SampleLibrary.h"
#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "library/Scan.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmMain.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/toolkit/Application.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/TreeView.h"

#include <fcntl.h>
#include <qpa/qwindowsysteminterface.h>
#include <unistd.h>

#include <QComboBox>
#include <QPushButton>
#include <QWindow>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tavel;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

struct Samples {
    fs::path picture;
    fs::path video;
};

// Folders of one kind each, picture and video by turns: music would end at the second group.
void MakeTree(const fs::path& tree, const Samples& samples, int folders, int filesOfEach) {
    for (int folder = 0; folder < folders; ++folder) {
        const fs::path place = tree / ("folder " + std::to_string(folder));
        fs::create_directories(place);
        const fs::path& sample = folder % 2 == 0 ? samples.picture : samples.video;
        for (int file = 0; file < filesOfEach; ++file)
            fs::copy_file(sample,
                          place / ("file " + std::to_string(file) + sample.extension().string()));
    }
}

std::string DrivePath(const fs::path& path) {
    return oFSO().FromHostPath(fs::absolute(path).string());
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteOnce(const fs::path& path, const std::string& bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
        fsync(file) != 0) {
        throw std::runtime_error("cannot write " + path.string());
    }
    close(file);
}

void Watch(const fs::path& db, const fs::path& tree) {
    WriteOnce(db, "[watch]\r\nnoofflds=1\r\n0=" + DrivePath(tree) + "\r\n");
}

void ExpectItems(Long count) {
    if (colPhoto.Count() + colVideo.Count() != count)
        throw std::runtime_error("the scan has not found what is there");
}

// As at the start: no record, no node, no line in the log.
void BeginAnew() {
    ReleaseCollections();
    SingleWindow<frmMain>::Get().RefreshCats();
    SingleWindow<frmLog>::Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void CompareKnown(const fs::path& db, const fs::path& tree) {
    Watch(db, tree);
    BackgroundScan();
    ExpectItems(30000);
    const std::string find = "find '" + tree.string() + "' -type f -printf '%s %p\\n' > /dev/null";
    bench::Compare(
        "`BackgroundScan` over 30,000 known files in 300 folders", "find with sizes", 7, 2.0,
        [](int) { BackgroundScan(); },
        [&](int) {
            if (std::system(find.c_str()) != 0) throw std::runtime_error("find failed");
        });
    ExpectItems(30000);
}

void CompareNew(const fs::path& db, const fs::path& tree) {
    Watch(db, tree);
    bAutoGroup = true;
    bench::Compare(
        "`BackgroundScan` over 5,000 new files in 500 leaf folders, with groups",
        "`AddFolder` without groups", 7, 1.5, [](int) { BackgroundScan(); },
        [&](int) { AddFolder(DrivePath(tree), true, false, true, false); },
        [](int) { BeginAnew(); }, [](int) { BeginAnew(); });
    bAutoGroup = false;
    ExpectItems(5000);
    if (colMagazine.Count() + colVidSeries.Count() != 500)
        throw std::runtime_error("the scan has not made the groups");
}

// Rounds differ in what they store, since an unchanged value writes nothing.
void CompareOK(const fs::path& db) {
    BeginAnew();
    WriteOnce(db, bench::SampleLibrary(10000));
    LoadDB();
    std::string watch = "[watch]\r\nnoofflds=10\r\n";
    for (int i = 0; i < 10; ++i)
        watch += std::to_string(i) + "=c:\\Pictures\\Folder " + std::to_string(i) + "\r\n";
    std::string text = ReadBytes(db);
    text.replace(text.find("[watch]\r\n"), 9, watch);
    WriteOnce(db, text);
    bench::Compare(
        "OK of `frmWatchFolders` with 10 folders, library of 30,000 entries",
        "the same bytes written once, fsync", 9, 6.0,
        [](int) {
            SingleWindow<frmWatchFolders>::Get()
                .findChild<QPushButton*>(QStringLiteral("cmdOK"))
                ->click();
        },
        [&](int) { WriteOnce(db.string() + ".rival", text); },
        [](int round) {
            frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
            ShowNow(window);
            for (const char* box : {"chkMusic", "chkPhoto", "chkVideo"})
                window.findChild<QAbstractButton*>(QLatin1String(box))->setChecked(round % 2 == 0);
            window.findChild<QComboBox*>(QStringLiteral("cmbScanDelay"))
                ->setCurrentIndex(round % 2);
        });
    const std::string stored = ReadBytes(db);
    if (stored.find("9Video=1\r\n") == std::string::npos || stored.size() < text.size())
        throw std::runtime_error("OK has not stored the folders");
}

// Clicks two nodes by turns, from outside as the window system does, and notes how long each click
// takes until the list is filled and painted. A second click on one would fill nothing.
class Clicks {
  public:
    explicit Clicks(frmMain& window) : m_window(window) {
        auto* tree = window.findChild<TreeView*>(QStringLiteral("trvCat"));
        auto* list = window.findChild<ListView*>(QStringLiteral("grdItems"));
        for (const char* key : {"photoall", "videoall"}) {
            const QRect node = tree->visualItemRect(&tree->Node(key));
            m_places.push_back(tree->viewport()->mapTo(&window, node.center()));
        }
        m_answer = QObject::connect(tree, &TreeView::NodeClicked, &window, [this, list] {
            list->viewport()->repaint();
            m_waits.push_back(
                std::chrono::duration<double, std::milli>(Clock::now() - m_pressed.load()).count());
            m_isUnderWay = false;
        });
    }
    ~Clicks() { QObject::disconnect(m_answer); }
    Clicks(const Clicks&) = delete;
    Clicks& operator=(const Clicks&) = delete;

    std::vector<double> During(const std::function<void()>& work) {
        m_waits.clear();
        std::atomic<bool> isOver = false;
        std::thread user([&] {
            while (!isOver) {
                std::this_thread::sleep_for(std::chrono::milliseconds(17));
                if (!m_isUnderWay) Click();
            }
        });
        work();
        isOver = true;
        user.join();
        while (m_isUnderWay) QCoreApplication::processEvents();
        return m_waits;
    }

  private:
    void Click() {
        const QPoint place = m_places[m_count++ % m_places.size()];
        using Soon = QWindowSystemInterface::AsynchronousDelivery;
        m_isUnderWay = true;
        // Far enough from the click before to be no double click.
        const ulong time = 1000 * m_count;
        m_pressed = Clock::now();
        for (const auto& [type, pressed] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                            {QEvent::MouseButtonRelease, Qt::NoButton}})
            QWindowSystemInterface::handleMouseEvent<Soon>(m_window.windowHandle(), time, place,
                                                           m_window.mapToGlobal(place), pressed,
                                                           Qt::LeftButton, type);
    }

    frmMain& m_window;
    std::vector<QPoint> m_places;
    QMetaObject::Connection m_answer;
    std::atomic<Clock::time_point> m_pressed;
    std::atomic<bool> m_isUnderWay = false;
    std::size_t m_count = 0;
    std::vector<double> m_waits;
};

void ReportClicks(const fs::path& db, const fs::path& tree) {
    Watch(db, tree);
    BeginAnew();
    Clicks clicks(SingleWindow<frmMain>::Get());
    const std::vector<double> adding = clicks.During([] { BackgroundScan(); });
    ExpectItems(30000);
    const std::vector<double> known = clicks.During([] {
        for (int i = 0; i < 10; ++i) BackgroundScan();
    });
    const std::vector<double> idle = clicks.During([] {
        const auto end = Clock::now() + std::chrono::seconds(2);
        while (Clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    });
    std::vector<double> usual = idle;
    std::nth_element(usual.begin(), usual.begin() + static_cast<long>(usual.size() / 2),
                     usual.end());
    const auto longest = [](const std::vector<double>& waits) {
        return *std::max_element(waits.begin(), waits.end());
    };
    std::printf(
        "\nA click that lists 15,000 items: %.1f ms idle (%zu clicks, longest %.1f); at most %.1f "
        "ms while a scan finds 30,000 new files (%zu clicks), %.1f ms while it passes over them "
        "(%zu clicks); to stay within 50 ms of the idle one.\n",
        usual[usual.size() / 2], idle.size(), longest(idle), longest(adding), adding.size(),
        longest(known), known.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: scan_bench FOLDER PICTURE VIDEO\n");
        return 2;
    }
    Application application(argc, argv);
    WireUpCalls();
    const fs::path folder(argv[1]);
    const Samples samples{argv[2], argv[3]};
    const fs::path db = folder / "db.txt";
    sPhotoSupport = {"jpg"};
    sVideoSupport = {"mp4"};
    fs::create_directories(folder);
    MakeTree(folder / "known", samples, 300, 100);
    MakeTree(folder / "new", samples, 500, 10);
    WriteOnce(db, "");
    sDBFile = DrivePath(db);

    ShowNow(SingleWindow<frmMain>::Get());
    CompareKnown(db, folder / "known");
    CompareNew(db, folder / "new");
    CompareOK(db);
    ReportClicks(db, folder / "known");
    std::fflush(stdout);
    std::_Exit(0);
}
