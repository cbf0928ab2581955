#include "ui/support/Wizard.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/Strings.h"

#include <QLineEdit>
#include <QPushButton>
#include <filesystem>

namespace tavel::test {

std::string WizardFiles::ReadWhole(std::string_view path) {
    const bool isWords = path == GetAppPath() + "text\\wizard.txt";
    return FaultyFileService::ReadWhole(isWords ? std::string_view(m_sWords) : path);
}

MsgBoxAnswer BoxesOfTheEngine::MsgBox(const std::string& text, MsgBoxButtons buttons,
                                      const std::string& title) {
    return tavel::MsgBox(ToQString(text), buttons, ToQString(title));
}

WizardTest::WizardTest() : disk(files, temp.DrivePath("wizard.txt")) {
    Service<FileService>::Use(&disk);
    std::string text;
    for (int page = 1; page <= 9; ++page) {
        const std::string number = std::to_string(page);
        text += "//" + number + "\r\nThe words of page " + number + "\r\n";
    }
    Words(text);
    temp.Write("db.txt",
               "[options]\r\nbFirstTime=1\r\nbAutoGroup=0\r\nbScanOnAppStart=0\r\n"
               "[watch]\r\nnoofflds=0\r\ndelay=60\r\n");
    sPhotoSupport = {"jpg"};
    sMusicSupport = {"mp3"};
    sVideoSupport = {"mp4"};
    bFirstTime = true;
}

WizardTest::~WizardTest() {
    SingleWindow<frmStartWizard>::Unload();
    RunEvents();
}

frmStartWizard& WizardTest::OpenWizard() {
    Wizard().show();
    Wizard().activateWindow();
    RunEvents();
    return Wizard();
}

void WizardTest::GoTo(int page) {
    while (Shown() != std::vector{page}) {
        if (Shown() == std::vector{5} && !disk.DriveExists("e:"))
            ExpectMessage("Cannot find the PSP, defaulting to C drive");
        if (Shown() == std::vector{7}) {
            Find<QLineEdit>(Wizard(), "txtFolderPath").setText(ToQString(temp.DrivePath("Media")));
            ExpectMessage("Folders created successfully");
        }
        Next();
    }
}

QWidget& WizardTest::Page(int number) {
    return Find(Wizard(), ("fraWizard(" + std::to_string(number) + ")").c_str());
}

std::string WizardTest::TextOf(int page) {
    const std::string name = "labText(" + std::to_string(page) + ")";
    return FromQString(Find<ScrollingLabel>(Wizard(), name.c_str()).toPlainText());
}

// What lies beside the place of the pages is not seen.
std::vector<int> WizardTest::Shown() {
    std::vector<int> pages;
    for (int number = 0; number <= 9; ++number) {
        if (Page(number).isVisible() && !Page(number).visibleRegion().isEmpty())
            pages.push_back(number);
    }
    return pages;
}

std::string WizardTest::Caption(const char* button) {
    return FromQString(Find<QPushButton>(Wizard(), button).text());
}

std::string WizardTest::Drive() { return Find<DriveList>(Wizard(), "drvPSP").Drive(); }

FakeDrive& WizardTest::PlugNewStick(char letter) {
    const std::string sFolder = temp.HostPath(std::string("new-") + letter);
    for (const char* folder : {"/PSP/MUSIC", "/PSP/PHOTO", "/MP_ROOT/100MNV01"})
        std::filesystem::create_directories(sFolder + folder);
    return disk.Plug(letter, sFolder);
}

std::string WizardTest::IdentityFile(char letter) const {
    return temp.Read(std::string("new-") + letter + "/TavelDataFile.tavel");
}

}  // namespace tavel::test
