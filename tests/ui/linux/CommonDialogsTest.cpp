#include "support/Support.h"
#include "ui/support/ButtonsWithPictures.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <functional>

// All of Qt's dialogs, two of which are the system's own elsewhere.

namespace tavel::test {

namespace {

ColorRequest FullColor() {
    ColorRequest request;
    request.flags = colorFlag::FullOpen;
    return request;
}

FontRequest FontWithEffects() {
    FontRequest request;
    request.flags = fontFlag::Effects;
    return request;
}

PrintRequest DefaultPrint() {
    PrintRequest request;
    request.printer = DefaultPrinter();
    return request;
}

PageRequest DefaultPage() {
    PageRequest request;
    request.printer = DefaultPrinter();
    return request;
}

// Looks at each of the real dialogs and cancels it.
void LookAtEach(const std::function<void(QWidget&)>& look) {
    auto& dialogs = Service<CommonDialogs>::Get();
    const std::function<void()> asks[] = {
        [&] { dialogs.PickColor(FullColor()); }, [&] { dialogs.PickFont(FontWithEffects()); },
        [&] { dialogs.PickPrinter(DefaultPrint()); }, [&] { dialogs.SetUpPage(DefaultPage()); }};
    for (const auto& ask : asks) {
        WhenModal([&look](QWidget& box) {
            look(box);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        ask();
    }
}

bool TakesValues(const QWidget& control) {
    if (qobject_cast<const QAbstractSpinBox*>(control.parentWidget()) != nullptr) return false;
    return qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QComboBox*>(&control) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&control) != nullptr;
}

// A host whose dialogs have no parts that go by a name, for as long as it lives.
class NamelessParts : public QObject {
  public:
    NamelessParts() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Create) {
            connect(watched, &QObject::objectNameChanged, watched, [watched](const QString& name) {
                if (!name.isEmpty()) watched->setObjectName(QString());
            });
        }
        return false;
    }
};

}  // namespace

TEST(CommonDialogs, a_screen_reader_has_a_name_for_all_that_takes_a_value) {
    int count = 0;
    LookAtEach([&count](QWidget& box) {
        for (QWidget* control : box.findChildren<QWidget*>()) {
            if (!control->isVisible() || !TakesValues(*control)) continue;
            ++count;
            EXPECT_FALSE(
                QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).isEmpty())
                << FromQString(box.objectName()) << " "
                << (control->objectName().isEmpty() ? control->metaObject()->className()
                                                    : FromQString(control->objectName()));
        }
    });
    EXPECT_GT(count, 20);
}

TEST(CommonDialogs, a_part_that_a_dialog_does_not_have_is_passed_over) {
    const NamelessParts host;
    auto& dialogs = Service<CommonDialogs>::Get();
    int seen = 0;
    const auto lookAndCancel = [&seen](QWidget& box) {
        ++seen;
        EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("from")), nullptr);
        EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("unitCombo")), nullptr);
        EXPECT_EQ(box.findChild<QWidget*>(QStringLiteral("treeView")), nullptr);
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    PrintRequest print = DefaultPrint();
    print.flags = printFlag::ToFile | printFlag::NoPageNumbers;
    PageRequest page = DefaultPage();
    page.flags = pageFlag::DisableMargins | pageFlag::DisableOrientation | pageFlag::DisablePaper;
    const RealPrompts real;
    const std::function<void()> asks[] = {
        [&] { dialogs.PickColor({}); }, [&] { dialogs.PickFont({}); },
        [&] { dialogs.PickPrinter(print); }, [&] { dialogs.SetUpPage(page); },
        [] { Service<Prompter>::Get().PickFiles({}); }};
    for (const auto& ask : asks) {
        WhenModal(lookAndCancel);
        ask();
    }
    EXPECT_EQ(seen, 5);
}

TEST(CommonDialogs, a_file_is_picked_and_its_type_told_where_no_part_has_a_name) {
    const NamelessParts host;
    const RealPrompts real;
    const TempFolder folder;
    folder.Write("a.zip", "");
    FileRequest request;
    request.startFolder = ToQString(folder.HostPath());
    request.descriptions = QStringList{QStringLiteral("Photos"), QStringLiteral("Zip")};
    request.patterns = QStringList{QStringLiteral("*.jpg"), QStringLiteral("*.zip")};
    request.filterIndex = 1;
    ConfirmNext(
        [](QWidget& box) { box.findChild<QLineEdit*>()->setText(QStringLiteral("a.zip")); });
    const FileAnswer answer = Service<Prompter>::Get().PickFiles(request);
    EXPECT_EQ(answer.files, QStringList(ToQString(folder.HostPath("a.zip"))));
    EXPECT_EQ(answer.filterIndex, 1);
}

TEST(CommonDialogs, nothing_is_kept_in_the_file_that_Qt_programs_share) {
    LookAtEach([](QWidget&) {});
    EXPECT_EQ(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).entryList(QDir::Files), QStringList());
}

TEST(CommonDialogs, no_button_has_a_picture_on_a_desktop_that_likes_them) {
    const ButtonsWithPictures desktop;
    int buttons = 0;
    LookAtEach([&buttons](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull()) << FromQString(box.objectName());
            ++buttons;
        }
    });
    EXPECT_EQ(buttons, 4 + 2 + 4 + 2);
}

TEST(CommonDialogs, each_has_the_text_of_the_program) {
    LookAtEach([](QWidget& box) {
        EXPECT_EQ(box.font().pointSizeF(), QApplication::font().pointSizeF())
            << FromQString(box.objectName());
    });
}

}  // namespace tavel::test
