#include "core/PublicStuff.h"
#include "platform/HostBoxes.h"
#include "platform/HostSession.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/RealPrompter.h"

#include <gmock/gmock.h>
#include <private/qguiapplication_p.h>
#include <private/qsessionmanager_p.h>
#include <qpa/qplatformsessionmanager.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QSessionManager>

// The desktop's session ends while a box stands, on a host that would not wait.

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A host that ends programs by force, or one that waits.
class FakeSession : public HostSession {
  public:
    FakeSession() { Service<HostSession>::Use(this); }
    ~FakeSession() override { Service<HostSession>::Use(nullptr); }

    bool endsByForce = true;
    std::vector<HostWindow> waited;

    bool WaitForProgram(HostWindow window, const std::string& why) override {
        EXPECT_EQ(why, "Changes are being saved.");
        if (endsByForce) waited.push_back(window);
        return endsByForce;
    }
};

// The desktop's session manager, which asks all programs.
class Manager : public QPlatformSessionManager {
  public:
    Manager() : QPlatformSessionManager({}, {}), m_former(Current()) { Current() = this; }
    ~Manager() override { Current() = m_former; }

    int refusals = 0;

    void cancel() override { ++refusals; }
    static void EndSession() { OfQt().commitData(); }

  private:
    static QGuiApplicationPrivate& OfQt() {
        return *static_cast<QGuiApplicationPrivate*>(QObjectPrivate::get(qApp));
    }
    // Qt keeps the type of its private part to itself.
    __attribute__((no_sanitize("vptr"))) static QPlatformSessionManager*& Current() {
        auto* session = QObjectPrivate::get(OfQt().session_manager);
        return static_cast<QSessionManagerPrivate*>(session)->platformSessionManager;
    }

    QPlatformSessionManager* m_former;
};

// A file box of the host's that is slow to go: it hears of a few cancellations first.
class SlowBoxes : public HostBoxes {
  public:
    SlowBoxes() { Service<HostBoxes>::Use(this); }
    ~SlowBoxes() override { Service<HostBoxes>::Use(nullptr); }

    static constexpr int patience = 4;
    int cancellations = 0;

    bool AreThere() override { return true; }
    HostFileAnswer PickFiles(const HostFileRequest&) override {
        Manager::EndSession();
        m_loop.exec();
        return {};
    }
    std::string PickFolder(const HostFolderRequest&) override { return {}; }
    void Cancel(HostWindow) override {
        if (++cancellations >= patience) m_loop.quit();
    }

  private:
    QEventLoop m_loop;
};

class SessionEndTest : public MainWindowTest {
  protected:
    SessionEndTest() { bDBChanged = true; }

    const Calls saved{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"};
    FakeSession session;
    Manager manager;
    EndOfSession m_endOfSession;
};

}  // namespace

TEST_F(SessionEndTest, without_a_box_all_is_saved_at_once_and_nothing_refused) {
    Open();
    Manager::EndSession();
    EXPECT_EQ(calls, saved);
    EXPECT_EQ(manager.refusals, 0);
    EXPECT_THAT(session.waited, IsEmpty());
}

TEST_F(SessionEndTest, while_a_box_stands_it_is_refused_until_the_callers_have_gone_on) {
    Open();
    const RealPrompts real;
    WhenModal([&](QWidget&) {
        Manager::EndSession();
        EXPECT_EQ(manager.refusals, 1);
        EXPECT_THAT(session.waited, ElementsAre(Main().winId()));
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Delete?"), MsgBoxButtons::OKCancel), MsgBoxAnswer::Cancel);
    EXPECT_THAT(calls, IsEmpty());
    (void)QTest::qWaitFor([&] { return !calls.empty(); });
    EXPECT_EQ(calls, saved);
}

TEST_F(SessionEndTest, a_session_that_waits_is_not_refused_its_end) {
    Open();
    const RealPrompts real;
    session.endsByForce = false;
    WhenModal([&](QWidget&) { Manager::EndSession(); });
    MsgBox(QStringLiteral("Delete?"), MsgBoxButtons::OKCancel);
    EXPECT_EQ(manager.refusals, 0);
    (void)QTest::qWaitFor([&] { return !calls.empty(); });
    EXPECT_EQ(calls, saved);
}

TEST_F(SessionEndTest, a_box_of_the_hosts_that_stays_is_asked_again_after_a_moment) {
    Open();
    SlowBoxes boxes;
    RealPrompter prompter;
    QElapsedTimer time;
    time.start();
    FileRequest request;
    request.owner = &Main();
    prompter.PickFiles(request);
    EXPECT_EQ(boxes.cancellations, SlowBoxes::patience);
    EXPECT_GE(time.elapsed(), 100) << "the processor was kept busy";
    EXPECT_EQ(manager.refusals, 1);
    EXPECT_THAT(calls, IsEmpty());
    (void)QTest::qWaitFor([&] { return !calls.empty(); });
    EXPECT_EQ(calls, saved);
}

}  // namespace tavel::test
