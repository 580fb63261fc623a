#pragma once

#include "shell/IWizardView.h"

namespace tarvex {

/// How fake wizards behave, and what they wrote down; outlives them.
struct FakeWizardScript {
    std::vector<std::string>& journal;
    bool initResult = true;
    bool mayClose = true;
    std::string viewName = "Vexlon Wizard";
    std::function<void()> duringInit = {};
};

/// A product wizard without a window: writes every call down as a line, in order, its own end included.
class FakeWizardView : public IWizardView {
public:
    FakeWizardView(std::string label, FakeWizardScript& script) : label_(std::move(label)), script_(script)
    {
        Note("made");
    }
    ~FakeWizardView() override { Note("gone"); }

    std::string ViewName() override { return script_.viewName; }
    void SetCaption(const std::string& caption) override { Note("SetCaption " + caption); }
    bool Init(IConfigController& controller, std::shared_ptr<IDevice> device, Document&,
              std::shared_ptr<IProduct> product) override
    {
        Note("Init " + controller.deviceName() + ", " + (device ? device->DeviceType() : "no device") + ", " +
             (product ? product->Name() : "no product"));
        if (script_.duringInit)
            script_.duringInit();
        return script_.initResult;
    }
    void SetCurrentProduct(const std::string& product) override { Note("SetCurrentProduct " + product); }
    void ShowView() override { Note("ShowView"); }
    void HideView() override { Note("HideView"); }
    void FocusView() override { Note("FocusView"); }
    void Unload() override { Note("Unload"); }
    bool ConfirmClose() override { return script_.mayClose; }
    void UpdateUI(std::int32_t kind, const std::string& name) override
    {
        Note("UpdateUI " + std::to_string(kind) + " " + name);
    }
    void CommFailure(const std::string& text) override { Note("CommFailure " + text); }

private:
    void Note(const std::string& line) { script_.journal.push_back(label_ + ": " + line); }

    std::string label_;
    FakeWizardScript& script_;
};

}
