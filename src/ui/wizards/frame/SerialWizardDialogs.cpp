#include "ui/wizards/frame/SerialWizardDialogs.h"

#include "comm/dialogs/NoCommHelp.h"
#include "comm/dialogs/SerialSettings.h"
#include "ui/common/ModalRun.h"

#include <optional>

namespace tarvex {

void SerialWizardDialogs::ShowSerialSettings(const CommSettings& settings, const Changed& changed,
                                             const Cancelled& cancelled)
{
    std::optional<CommSettings> chosen;
    bool gaveUp = false;
    {
        const OwnedDialog<SerialSettings> dialog("SerialSettings", prompts_, DialogParent());
        const auto onChanged = dialog->CommSettingsChanged.Subscribe([&](const CommSettings& now) { chosen = now; });
        const auto onCancelled = dialog->UserCancelled.Subscribe([&] { gaveUp = true; });
        dialog->SetCommSettings(settings);
        RunModal(*dialog);
    }
    if (chosen)
        changed(*chosen);
    else if (gaveUp)
        cancelled();
}

void SerialWizardDialogs::ShowNoCommHelp(const CommSettings& settings, const Changed& changed,
                                         const Cancelled& cancelled)
{
    std::optional<CommSettings> chosen;
    bool gaveUp = false;
    {
        const OwnedDialog<NoCommHelp> dialog("NoCommHelp", prompts_, DialogParent());
        const auto onChanged = dialog->SettingsChanged.Subscribe([&](const CommSettings& now) { chosen = now; });
        const auto onCancelled = dialog->UserCancelledEvent.Subscribe([&] { gaveUp = true; });
        dialog->InitSettings(settings);
        RunModal(*dialog);
    }
    if (chosen)
        changed(*chosen);
    if (gaveUp)
        cancelled();
}

}
