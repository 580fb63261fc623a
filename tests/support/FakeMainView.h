#pragma once

#include "shell/IMainView.h"

namespace tarvex {

/// A main window without a window: writes every call down as a line, in order, in a journal that other fakes may share.
class FakeMainView : public IMainView {
public:
    explicit FakeMainView(std::vector<std::string>& journal) : journal_(journal) {}

    void InitialiseState() override { Note("InitialiseState"); }
    void ShowNetworkAddress(bool visible) override { Note("ShowNetworkAddress", visible); }
    void ShowSerialSettings(bool visible) override { Note("ShowSerialSettings", visible); }
    void LayOut() override { Note("LayOut"); }
    void SetStatusRefreshInterval(std::int32_t) override { Note("SetStatusRefreshInterval"); }
    void HookDeviceChanges() override { Note("HookDeviceChanges"); }
    void ApplyPreferences() override { Note("ApplyPreferences"); }
    void EnableTransfers(bool enabled) override { Note("EnableTransfers", enabled); }
    void PrepareFileDialog(const std::string&, const std::string&) override { Note("PrepareFileDialog"); }
    void Attach(Document* document) override { Note("Attach", document != nullptr); }
    void Init(IConfigController&, std::shared_ptr<IDevice> device) override
    {
        Note("Init " + (device ? device->DeviceType() : "none"));
    }
    bool IsViewVisible() const override { return isVisible; }
    void ShowView() override { Note("ShowView"); }
    void HideView() override { Note("HideView"); }
    void FocusView() override { Note("FocusView"); }
    void OpenDataFile(const std::string& path) override { Note("OpenDataFile " + path); }
    bool ConfirmClose() override { return confirmsClose; }
    bool MayDropEdits() override { return dropsEdits; }
    void UpdateUI(std::int32_t kind, const std::string& name) override
    {
        Note("UpdateUI " + std::to_string(kind) + " " + name);
    }
    void ShowRegisterValues() override { ++valuesShown; }
    void CommFailure(const std::string& text) override { Note("CommFailure " + text); }
    void LockRealTime() override { Note("LockRealTime"); }
    void SetAsSecondaryView(bool secondary) override { Note("SetAsSecondaryView", secondary); }
    void SetZorbusID(std::int32_t value) override { Note("SetZorbusID " + std::to_string(value)); }
    void SetChannelNum(std::int16_t number) override { Note("SetChannelNum " + std::to_string(number)); }
    void SetPrefAutoConnect(bool on) override { Note("SetPrefAutoConnect", on); }
    void DisplayStatusMessage(const std::string& text) override { Note("DisplayStatusMessage " + text); }

    bool confirmsClose = true;
    bool dropsEdits = true;
    bool isVisible = false;
    int valuesShown = 0;

private:
    void IProgress_SetRange(std::int32_t, std::int32_t) override {}
    void IProgress_TickProgress(std::int32_t) override {}
    void IProgress_Show(bool) override {}

    void Note(const std::string& line) { journal_.push_back("main: " + line); }
    void Note(const std::string& line, bool flag) { Note(line + (flag ? " yes" : " no")); }

    std::vector<std::string>& journal_;
};

}
