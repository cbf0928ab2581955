#include "support/Recorders.h"

#include <gtest/gtest.h>

namespace tavel::test {

bool AppWindowsRecorder::InitCommonControls(Long requestSize, Long classMask) {
    m_calls.push_back("InitCommonControls " + std::to_string(requestSize) + " " +
                      std::to_string(classMask));
    return initCommonControls();
}

void AppWindowsRecorder::ShowStartWizard() {
    m_calls.push_back("ShowStartWizard");
    onFirstWindow();
}

void AppWindowsRecorder::ShowMain() {
    m_calls.push_back("ShowMain");
    onFirstWindow();
}

void AppWindowsRecorder::ShowEnd() {
    m_calls.push_back("ShowEnd");
    onShowEnd();
}

void LibraryStoreRecorder::LoadDB() {
    m_calls.push_back("LoadDB");
    onLoadDB();
}

void LibraryStoreRecorder::SaveDB() {
    m_calls.push_back("SaveDB");
    onSaveDB();
}

void LibraryStoreRecorder::BackgroundScan() {
    m_calls.push_back("BackgroundScan");
    onBackgroundScan();
}

void LibraryStoreRecorder::Release() {
    m_calls.push_back("Release");
    onRelease();
}

void LogWindowRecorder::AddItem(const std::string& line) {
    lines.push_back(line);
    const std::size_t category = line.find('\t') + 1;
    const std::size_t message = line.find('\t', category) + 1;
    m_calls.push_back("Log " + line.substr(category, message - 1 - category) + ": " +
                      line.substr(message));
}

MessageBoxesRecorder::~MessageBoxesRecorder() {
    for (const auto& [text, answer] : m_expected) ADD_FAILURE() << "never shown: " << text;
}

MsgBoxAnswer MessageBoxesRecorder::MsgBox(const std::string& text, MsgBoxButtons buttons,
                                          const std::string& title) {
    const char* names[] = {"OK", "OKCancel", "YesNo"};
    m_calls.push_back("MsgBox " + title + ": " + text + " (" + names[static_cast<int>(buttons)] +
                      ")");
    if (m_expected.empty() || m_expected.front().first != text) {
        ADD_FAILURE() << "not expected: " << text;
        return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
    }
    const MsgBoxAnswer answer = m_expected.front().second;
    m_expected.pop_front();
    return answer;
}

void AddWindowRecorder::SetPath(const std::string& sPath) {
    m_calls.push_back("frmAdd.SetPath " + sPath);
    onSetPath(sPath);
}

void AddWindowRecorder::Unload() {
    m_calls.push_back("frmAdd.Unload");
    exitChecked = false;
}

void EventLoopRecorder::Yield() {
    m_calls.push_back("Yield");
    onYield();
}

}  // namespace tavel::test
