#include "ui/wizards/frame/BoardImage.h"

#include "base/Error.h"
#include "config/IProgress.h"
#include "config/PendingEdits.h"
#include "model/RegisterObject.h"
#include "ui/wizards/frame/IWizardHost.h"

namespace tarvex {

namespace {

constexpr std::size_t kFailuresTolerated = 5; ///< after more of them the board is not asked any further

}

void BoardImage::DropEdits()
{
    IConfigController& controller = host_->Controller();
    for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i)
        if (const auto each = controller.GetI2CRegister(i); each->IsDirty()) {
            each->IsDirty(false);
            Forget();
        }
}

bool BoardImage::CatchUp()
{
    if (isRead_)
        return false;
    unread_ = Read(AllNames(), kFailuresTolerated);
    isRead_ = true;
    return true;
}

std::optional<std::string> BoardImage::ReadAll()
{
    unread_ = Read(AllNames(), 0);
    isRead_ = unread_.empty() || stopped_; // what the user did not want to wait for is not read right after it
    return isRead_ ? std::nullopt : std::optional(unread_.front());
}

std::vector<std::string> BoardImage::FindUnread()
{
    if (!host_->EnsureLink())
        return isRead_ ? unread_ : AllNames();
    if (!CatchUp())
        unread_ = Read(unread_, kFailuresTolerated);
    return unread_;
}

BoardImage::Registers BoardImage::Read(const Registers& names, std::size_t failuresTolerated)
{
    Registers failed;
    stopped_ = false;
    if (names.empty())
        return failed;
    const PendingEdits kept(host_->Controller());
    const auto busy = host_->Services().beginBusy();
    const auto progress = host_->BeginProgress();
    host_->View().Progress().SetRange(static_cast<std::int32_t>(names.size()), 1);
    std::size_t failures = 0;
    for (const std::string& name : names) {
        if (failures <= failuresTolerated && !host_->Services().wait.Cancelled() && ReadOne(name))
            continue;
        ++failures;
        failed.push_back(name);
    }
    stopped_ = host_->Services().wait.Cancelled();
    if (whenRead_)
        whenRead_(failed);
    return failed;
}

bool BoardImage::ReadOne(const std::string& name)
{
    IConfigController& controller = host_->Controller();
    const auto target = controller.GetI2CRegisterByName(name);
    const int before = host_->Failures();
    try {
        if (const auto aspi = aspiOf_(*target))
            controller.ReadI2CRegister(host_->Device(), name, *aspi);
    } catch (const Error&) {
        host_->Services().errorLog.LogCurrentError();
        return false;
    }
    return host_->Failures() == before;
}

BoardImage::Registers BoardImage::AllNames() const
{
    IConfigController& controller = host_->Controller();
    Registers names;
    for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i)
        names.push_back(controller.GetI2CRegister(i)->Name());
    return names;
}

}
