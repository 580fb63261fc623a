#pragma once

#include "platform/zorbus/CommSettings.h"

#include <functional>

namespace tarvex {

/// The windows in which the user of a serial wizard looks after the serial port. They change nothing themselves: what
/// he chose is handed over once the window has closed.
class ISerialWizardDialogs {
public:
    using Changed = std::function<void(const CommSettings&)>;
    using Cancelled = std::function<void()>;

    virtual ~ISerialWizardDialogs() = default;

    /// Lets the user change the settings; calls one of the two, or none when the window was closed by its end.
    virtual void ShowSerialSettings(const CommSettings& settings, const Changed& changed,
                                    const Cancelled& cancelled) = 0;
    /// Tells that no enclosure answers, with a checklist; the settings can be changed from there. Calls `changed` when
    /// they were, and then `cancelled` when the user gave up.
    virtual void ShowNoCommHelp(const CommSettings& settings, const Changed& changed, const Cancelled& cancelled) = 0;
};

}
