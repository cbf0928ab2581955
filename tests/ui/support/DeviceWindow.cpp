#include "ui/support/DeviceWindow.h"

#include "core/PublicStuff.h"

#include <QLabel>
#include <filesystem>
#include <set>

namespace tavel::test {

DeviceWindowTest::DeviceWindowTest() {
    sPhotoSupport = {"jpg"};
    sMusicSupport = {"mp3"};
    sVideoSupport = {"mp4"};
    PlugStick();
}

void DeviceWindowTest::AnswerDelete(Long row, MsgBoxAnswer answer) {
    RightClickRow(row);
    prompts.ExpectMsgBox(QStringLiteral("This will remove the file(s) from the PSP, are you sure?"),
                         MsgBoxButtons::YesNoDefaultNo, answer, QStringLiteral("Confirm Delete"));
    Pick({"mnuPSPRMB", "mnuPSPDel"});
}

std::string DeviceWindowTest::Text(const char* label) {
    return Find<QLabel>(Main(), label).text().toStdString();
}

std::string DeviceWindowTest::OnStick(const std::string& sFolder) const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(temp.HostPath("stick/" + sFolder)))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names) text += name + " ";
    return text;
}

}  // namespace tavel::test
