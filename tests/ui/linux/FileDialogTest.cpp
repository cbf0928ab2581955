#include "ui/support/FileDialogs.h"

#include <QDir>
#include <QFile>

namespace tavel::test {

namespace {

// Names that only this host's files can have.
class FileDialogNames : public FileDialogs {};

class FileDialogSettings : public FileDialogs {};

}  // namespace

TEST_F(FileDialogNames, that_no_drive_has_are_not_picked) {
    folder.Write("a\\b.jpg", "");
    const std::string reason = folder.HostPath("a\\b.jpg") + " can't be reached.";
    EXPECT_EQ(TypeInVain(QStringLiteral("a\\b.jpg"), reason).result, 0);
    request.flags |= PickMultiSelect;
    EXPECT_EQ(TypeInVain(QStringLiteral("\"b.jpg\" \"a\\b.jpg\""), reason).result, 0);
    EXPECT_EQ(TypeInVain(QStringLiteral("/dev/null"), "/dev/null can't be reached.").result, 0);
}

TEST_F(FileDialogNames, that_no_drive_has_are_not_made) {
    request.flags = PickHideReadOnly;
    for (const char* name : {"a\\b.txt", "a:b.txt"}) {
        const std::string reason = folder.HostPath(name) + " can't be reached.";
        EXPECT_EQ(TypeInVain(QString::fromLatin1(name), reason).result, 0);
    }
}

TEST_F(FileDialogSettings, nothing_is_kept_in_nor_taken_from_the_file_that_Qt_programs_share) {
    const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME"));
    const QString name = QStringLiteral("QtProject.conf");
    { const FileDialog dialog(request); }
    EXPECT_FALSE(config.exists(name));

    const QByteArray others = "[FileDialog]\nviewMode=List\n";
    QFile file(config.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(others);
    file.flush();
    EXPECT_EQ(FileDialog(request).viewMode(), QFileDialog::Detail);
    file.seek(0);
    EXPECT_EQ(file.readAll(), others);
    file.remove();
}

}  // namespace tavel::test
