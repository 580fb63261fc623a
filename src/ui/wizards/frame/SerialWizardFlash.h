#pragma once

#include <functional>
#include <string>

namespace tarvex {

class IWizardHost;
class SerialWizardMenu;
class SerialZorbus;
struct MenuEntry;

/// What the wizards of the serial boards say about flash; titles are those of message boxes.
struct FlashTexts {
    std::string savedTitle;
    std::string saveFailedTitle;
    std::string restoredMessage; ///< in the "Message" panel
    std::string restoredTitle;
    std::string restoreFailedTitle;
    std::string restoreFailed;
};

/// How a product saves to its flash and restores from it.
struct FlashSteps {
    using Step = std::function<bool(SerialZorbus&)>; ///< true when it succeeded
    Step save;
    Step restore;
    std::function<FlashTexts()> texts; ///< asked after a step, since they may name the board
};

/// The entries `SyncToFlash` and `RestoreFlash` of a serial wizard: the board's current settings are saved in it, or
/// the saved ones come back. Without a serial link they only say so. The product owns it.
class SerialWizardFlash {
public:
    SerialWizardFlash(SerialWizardMenu& menu, FlashSteps steps);
    SerialWizardFlash(const SerialWizardFlash&) = delete;
    SerialWizardFlash& operator=(const SerialWizardFlash&) = delete;

    // For the product's Describe. The entries keep `this`.
    MenuEntry SaveEntry(const std::string& caption);
    MenuEntry RestoreEntry(const std::string& caption);

    void Attach(IWizardHost& host) { host_ = &host; }

    void SyncToFlash_Click();
    void RestoreFlash_Click();

private:
    bool CanWork();
    bool Run(const FlashSteps::Step& step);
    void TellFailure(const std::string& text, const std::string& title);

    SerialWizardMenu& menu_;
    FlashSteps steps_;
    IWizardHost* host_ = nullptr;
};

}
