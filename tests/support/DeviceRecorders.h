#pragma once

#include "device/DeviceWindows.h"
#include "support/Recorders.h"

#include <functional>
#include <string>
#include <utility>

namespace tavel::test {

// "pgbCurr.Max 2048", "pgbCurr.Value 1024", "pgbCurr.Repaint"
class ProgressBarRecorder : public ProgressBarView {
  public:
    ProgressBarRecorder(Calls& calls, std::string name) : m_calls(calls), m_name(std::move(name)) {}

    bool isRecording = true;
    std::function<void(float)> onValue = [](float) {};

    void SetMin(float value) override { Record("Min", value); }
    void SetMax(float value) override { Record("Max", value); }
    void SetValue(float value) override;
    float Value() const override { return m_value; }
    void Repaint() override;

  private:
    void Record(const std::string& what, float value);

    Calls& m_calls;
    std::string m_name;
    float m_value = 0;
};

class CopyWindowRecorder : public Standing<CopyWindow> {
  public:
    explicit CopyWindowRecorder(Calls& calls)
        : curr(calls, "pgbCurr"), total(calls, "pgbTotal"), m_calls(calls) {}

    ProgressBarRecorder curr;
    ProgressBarRecorder total;

    void Show() override { m_calls.push_back("frmCopy.Show"); }
    void Repaint() override { m_calls.push_back("frmCopy.Repaint"); }
    ProgressBarView& pgbCurr() override { return curr; }
    ProgressBarView& pgbTotal() override { return total; }
    void SetFile(const std::string& sText) override { m_calls.push_back("labFile " + sText); }
    void SetSubFile(const std::string& sText) override { m_calls.push_back("labSubFile " + sText); }
    void ShowSubFile(bool bVisible) override;
    void ShowFinish() override { m_calls.push_back("labFinish on"); }
    void ShowOK() override { m_calls.push_back("cmdOK on"); }

  private:
    Calls& m_calls;
};

// Does nothing but record, unless a test gives it something to do.
class DevicePanelsRecorder : public Standing<DevicePanels> {
  public:
    explicit DevicePanelsRecorder(Calls& calls) : m_calls(calls) {}

    std::function<void()> onRefreshPSPCats = [] {};
    std::function<void()> onRefreshPSPStatus = [] {};

    void RefreshPSPStatus() override;
    void RefreshPSPCats() override;
    void ShowPSPCats(bool bShow) override;

  private:
    Calls& m_calls;
};

}  // namespace tavel::test
