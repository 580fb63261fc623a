#include "ui/wizards/frame/SerialWizardFlash.h"

#include "comm/SerialZorbus.h"
#include "shell/Document.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/SerialWizardMenu.h"

#include <utility>

namespace tarvex {

SerialWizardFlash::SerialWizardFlash(SerialWizardMenu& menu, FlashSteps steps) : menu_(menu), steps_(std::move(steps))
{}

MenuEntry SerialWizardFlash::SaveEntry(const std::string& caption)
{
    return {"SyncToFlash", caption, [this] { SyncToFlash_Click(); }};
}

MenuEntry SerialWizardFlash::RestoreEntry(const std::string& caption)
{
    return {"RestoreFlash", caption, [this] { RestoreFlash_Click(); }};
}

bool SerialWizardFlash::CanWork()
{
    if (menu_.Link())
        return host_->EnsureLink();
    host_->Say("Settings are saved to a system and restored from it only over a serial link.");
    return false;
}

bool SerialWizardFlash::Run(const FlashSteps::Step& step)
{
    const auto busy = host_->Services().beginBusy();
    const auto kept = host_->TheDocument().device(); // stays while it is at work
    return step(*menu_.Link());
}

void SerialWizardFlash::TellFailure(const std::string& text, const std::string& title)
{
    host_->Services().prompts.Tell(text, title, Icon::Exclamation);
    host_->StillAnswers(); // it may not have come back
}

void SerialWizardFlash::SyncToFlash_Click()
{
    if (!CanWork())
        return;
    host_->Say("Syncing current settings to flash...");
    const bool saved = Run(steps_.save);
    const FlashTexts texts = steps_.texts();
    if (saved)
        host_->Say("Flash synced.");
    if (saved)
        host_->Services().prompts.Tell("Success saving settings.", texts.savedTitle, Icon::Information);
    else
        TellFailure("Failed to sync to flash", texts.saveFailedTitle);
}

void SerialWizardFlash::RestoreFlash_Click()
{
    if (!CanWork())
        return;
    host_->Say("Syncing current settings to flash...");
    host_->Say("Restoring settings from flash...");
    const bool restored = Run(steps_.restore);
    const FlashTexts texts = steps_.texts();
    if (!restored)
        return TellFailure(texts.restoreFailed, texts.restoreFailedTitle);
    host_->DropDataFile();
    host_->SelectAgain();
    host_->TellOtherViews(kEverythingChanged, "");
    host_->Say(texts.restoredMessage);
    host_->Services().prompts.Tell("Success restoring settings.", texts.restoredTitle, Icon::Information);
}

}
