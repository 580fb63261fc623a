#pragma once

#include "ui/wizards/frame/ISerialWizardDialogs.h"

namespace tarvex {

class IUserPrompts;

/// The windows about the serial port, over the window that is being worked in. The wizard owns it.
class SerialWizardDialogs : public ISerialWizardDialogs {
public:
    /// `prompts` must outlive it.
    explicit SerialWizardDialogs(IUserPrompts& prompts) : prompts_(prompts) {}

    void ShowSerialSettings(const CommSettings& settings, const Changed& changed, const Cancelled& cancelled) override;
    void ShowNoCommHelp(const CommSettings& settings, const Changed& changed, const Cancelled& cancelled) override;

private:
    IUserPrompts& prompts_;
};

}
