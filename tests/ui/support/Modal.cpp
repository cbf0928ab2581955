#include "ui/support/Modal.h"

#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"

#include <QLabel>
#include <QTimer>

namespace tavel::test {

namespace {

const QString awaited = QStringLiteral("awaited box");

void Await(QObject* waiting, const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, waiting, [waiting, act] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr) {
            Await(waiting, act);
            return;
        }
        delete waiting;
        act(*box);
    });
}

}  // namespace

void WhenModal(const std::function<void(QWidget&)>& act) {
    auto* waiting = new QObject(qApp);
    waiting->setObjectName(awaited);
    Await(waiting, act);
}

void AnswerNext(const std::string& asked, Qt::Key key) {
    WhenModal([asked, key](QWidget& box) {
        QString read = Find<QLabel>(box, "qt_msgbox_label").text();
        read.remove(QChar(0x200B));  // where a path may go on in the next line
        EXPECT_STRCASEEQ(FromQString(read).c_str(), asked.c_str());
        EXPECT_EQ(box.windowTitle(), box.parentWidget()->windowTitle());
        QTest::keyClick(&box, key);
    });
}

void ExpectNoneAwaited() {
    for (QObject* waiting : qApp->findChildren<QObject*>(awaited)) {
        delete waiting;
        ADD_FAILURE() << "a box was waited for and did not come";
    }
}

}  // namespace tavel::test
