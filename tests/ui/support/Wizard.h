#pragma once

#include "ui/setup/frmStartWizard.h"
#include "ui/support/MainWindow.h"

#include <string>
#include <vector>

namespace tavel::test {

// A file service whose text\wizard.txt is another one than the program's.
class WizardFiles : public FaultyFileService {
  public:
    WizardFiles(FileService& real, std::string sWords)
        : FaultyFileService(real), m_sWords(std::move(sWords)) {}

    std::string ReadWhole(std::string_view path) override;

  private:
    std::string m_sWords;  // its path
};

// Passes the engine's boxes on to the windows, as the program does.
class BoxesOfTheEngine : public Standing<MessageBoxes> {
  public:
    MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons,
                        const std::string& title) override;
};

// The real wizard over a db.txt of its own. No drive but c: is there until a test plugs one in.
class WizardTest : public MainWindowTest {
  protected:
    WizardTest();
    ~WizardTest() override;

    void Words(const std::string& text) const { temp.Write("wizard.txt", text); }
    std::string DB() const { return temp.Read("db.txt"); }

    static frmStartWizard& Wizard() { return SingleWindow<frmStartWizard>::Get(); }
    static bool IsOpen() { return SingleWindow<frmStartWizard>::Loaded(); }
    static frmStartWizard& OpenWizard();

    static void Next() { Click(Wizard(), "cmdNext"); }
    static void Back() { Click(Wizard(), "cmdPrev"); }
    // Goes on to a page from one of the first pages before it, past the messages on the way.
    void GoTo(int page);

    static QWidget& Page(int number);
    static std::string TextOf(int page);
    static std::vector<int> Shown();  // the pages that show
    static std::string Caption(const char* button);
    static std::string Drive();

    // A stick as a PSP has formatted it.
    FakeDrive& PlugNewStick(char letter = 'e');
    std::string IdentityFile(char letter = 'e') const;

    void ExpectMessage(const char* text) {
        prompts.ExpectMsgBox(QLatin1String(text), MsgBoxButtons::OK, MsgBoxAnswer::OK);
    }

    WizardFiles disk;
    BoxesOfTheEngine boxes;
};

}  // namespace tavel::test
