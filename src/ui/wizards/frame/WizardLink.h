#pragma once

#include "base/Event.h"
#include "comm/api/IDevice.h"
#include "config/IConfigController.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/IWizardProduct.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tarvex {

class Document;

/// A wizard's hold on the link in use: counts how its transfers end, makes sure that it stands, and shows in the window
/// whether it does. The device itself is asked of the document each time. The frame owns it.
class WizardLink {
public:
    /// `recovered` is called when a lost link stands again.
    WizardLink(IWizardFrameView& view, IWizardProduct& product, const WizardDescription& description,
               const WizardServices& services, std::function<void()> recovered);

    /// Gives it the document, or takes it away.
    void Attach(Document* document) { document_ = document; }
    /// Listens to the link in use; called from the wizard's Init and whenever another link has been put in place.
    void BindDevice();
    /// Listens to no link any more.
    void Release() { subscriptions_.clear(); }
    /// Raises 303 when there is none.
    IDevice& Device() const;

    /// Asks the board for its first register and shows the answer (see IWizardHost).
    bool CheckConnection() { return Check(Telling::Always); }
    /// The box about a board that does not answer comes once while the link stays lost, and not at each attempt.
    bool EnsureLink();
    /// After a failed transfer: false when the board does not answer any more. The link is closed then, so that the
    /// next operation connects anew.
    bool StillAnswers();
    void EnterFailureState();
    bool HasFailed() const { return failed_; }

    int Failures() const { return failures_; }
    int Successes() const { return successes_; }

    // Handlers of the links' events; the demo board has none.
    void ehHIDDevice_ReadFailure(std::int32_t, std::int32_t) { ++failures_; }
    void ehHIDDevice_WriteFailure(std::int32_t, std::int32_t) { ++failures_; }
    void ehHIDDevice_ReadSuccess(std::int32_t, std::int32_t) { ++successes_; }
    void ehHIDDevice_WriteSuccess(std::int32_t, std::int32_t) { ++successes_; }
    void ehSerialZorbus_ReadFailure(std::int32_t, std::int32_t) { ++failures_; }
    void ehSerialZorbus_WriteFailure(std::int32_t, std::int32_t) { ++failures_; }
    void ehSerialZorbus_ReadSuccess(std::int32_t, std::int32_t) { ++successes_; }
    void ehSerialZorbus_WriteSuccess(std::int32_t, std::int32_t) { ++successes_; }

private:
    enum class Answer { Yes, No, Error };
    enum class Telling { Always, NewFailure };
    Answer AskBoard(std::string& error);
    bool Check(Telling telling);
    bool Connect();
    /// Whether the link knows without asking that its board does not answer.
    static bool IsKnownGone(const IDevice& device);
    void ShowStanding();
    void TellNoAnswer();
    void EnableMenus(bool enabled);
    std::string TargetName() const;

    IWizardFrameView& view_;
    IWizardProduct& product_;
    const WizardDescription& description_;
    const WizardServices& services_;
    std::function<void()> recovered_;
    Document* document_ = nullptr;
    bool failed_ = false;
    int failures_ = 0;
    int successes_ = 0;
    std::vector<Subscription> subscriptions_;
};

}
