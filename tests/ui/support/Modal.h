#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>

namespace tavel::test {

// Runs `act` on the next modal box as soon as it blocks in its event loop. A test must not end
// before one came: what still waits would act on a box of the next test.
void WhenModal(const std::function<void(QWidget&)>& act);

// Ends all waiting, and fails the test if there was any.
void ExpectNoneAwaited();

// Ends the next modal box by a key, once a test has done with it.
inline void EndNext(Qt::Key key, const std::function<void(QWidget&)>& before) {
    WhenModal([key, before](QWidget& box) {
        if (before) before(box);
        QTest::keyClick(&box, key);
    });
}
inline void ConfirmNext(const std::function<void(QWidget&)>& before = {}) {
    EndNext(Qt::Key_Return, before);
}
inline void CancelNext(const std::function<void(QWidget&)>& before = {}) {
    EndNext(Qt::Key_Escape, before);
}

// Presses a key in the next message box, which stands over another, and must read so. Where the
// host does not tell the case of letters apart, the name of a file in it may be as it is called
// rather than as it was typed.
void AnswerNext(const std::string& asked, Qt::Key key = Qt::Key_Return);

// A dialog's call whose owner goes while the box stands over it: a cancel.
template <class Call>
void ExpectCancelWithItsOwner(Call& call) {
    auto* owner = new QWidget;
    call.Owner = owner;
    WhenModal([owner](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), owner);
        delete owner;
    });
    EXPECT_FALSE(call.Run());
}

// The same on a box that stands over another, as soon as `opens`, which is posted, has brought it
// up. Nothing of the test is on the way when it acts, so it may delete what is below.
inline void WhenModalOver(QWidget& box, const std::function<void()>& opens,
                          const std::function<void(QWidget&)>& act) {
    const auto run = [&box, opens, act] {
        WhenModal([&box, act](QWidget& over) {
            EXPECT_NE(&over, &box);
            act(over);
        });
        opens();
    };
    QMetaObject::invokeMethod(&box, run, Qt::QueuedConnection);
}

}  // namespace tavel::test
