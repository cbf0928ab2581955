#include "support/DeviceRecorders.h"

#include "platform/Numbers.h"

namespace tavel::test {

void ProgressBarRecorder::Record(const std::string& what, float value) {
    if (isRecording) m_calls.push_back(m_name + "." + what + " " + TextOfSingle(value));
}

void ProgressBarRecorder::SetValue(float value) {
    Record("Value", value);
    m_value = value;
    onValue(value);
}

void ProgressBarRecorder::Repaint() {
    if (isRecording) m_calls.push_back(m_name + ".Repaint");
}

void CopyWindowRecorder::ShowSubFile(bool bVisible) {
    m_calls.push_back(bVisible ? "labSubFile on" : "labSubFile off");
}

void DevicePanelsRecorder::RefreshPSPStatus() {
    m_calls.push_back("RefreshPSPStatus");
    onRefreshPSPStatus();
}

void DevicePanelsRecorder::RefreshPSPCats() {
    m_calls.push_back("RefreshPSPCats");
    onRefreshPSPCats();
}

void DevicePanelsRecorder::ShowPSPCats(bool bShow) {
    m_calls.push_back(bShow ? "ShowPSPCats on" : "ShowPSPCats off");
}

}  // namespace tavel::test
