#include "ui/advanced/RegisterTransfer.h"

#include "base/Error.h"
#include "model/RegisterObject.h"

#include <unordered_set>
#include <utility>

namespace tarvex {

namespace {

constexpr int kFailuresTolerated = 5;

/// The changed marks of a register and of all that are transferred after it.
class Marks {
public:
    explicit Marks(const std::shared_ptr<RegisterObject>& first)
    {
        Keep(first);
        for (std::size_t i = 0; i < marks_.size(); ++i) {
            const auto kept = marks_[i].first;
            for (const auto& dependency : kept->Dependencies())
                Keep(dependency);
        }
    }

    void Restore() const
    {
        for (const auto& [kept, dirty] : marks_)
            kept->IsDirty(dirty);
    }

private:
    void Keep(const std::shared_ptr<RegisterObject>& object)
    {
        if (known_.insert(object.get()).second)
            marks_.emplace_back(object, object->IsDirty());
    }

    std::vector<std::pair<std::shared_ptr<RegisterObject>, bool>> marks_;
    std::unordered_set<const RegisterObject*> known_;
};

/// Ends the display of a run however it ends.
class ProgressShown {
public:
    ProgressShown(IProgress* progress, int steps) : progress_(progress)
    {
        if (progress_) {
            progress_->SetRange(steps, 0);
            progress_->Show(true);
        }
    }
    ~ProgressShown()
    {
        if (progress_)
            progress_->Show(false);
    }
    ProgressShown(const ProgressShown&) = delete;
    ProgressShown& operator=(const ProgressShown&) = delete;

private:
    IProgress* progress_;
};

}

void RegisterTransfer::ShowOn(IProgress* progress, IStatusLine& statusLine, IWait& wait)
{
    progress_ = progress;
    statusLine_ = &statusLine;
    wait_ = &wait;
}

bool RegisterTransfer::Announce(const RegisterObject& next, const char* what, TransferResult& result)
{
    if (!wait_)
        return true;
    statusLine_->DisplayStatusMessage(what + next.Name());
    wait_->Breathe();
    result.cancelled = wait_->Cancelled();
    return !result.cancelled;
}

template <class Transfer> bool RegisterTransfer::Succeeds(Transfer transfer, TransferResult& result)
{
    const int failuresBefore = counts_.failures;
    try {
        transfer();
    } catch (const Error& error) {
        errorLog_.LogCurrentError();
        if (result.error.empty())
            result.error = error.Description();
        return false;
    }
    return counts_.failures == failuresBefore;
}

template <class Transfer>
TransferResult RegisterTransfer::Run(const Registers& registers, Direction direction, Transfer transfer)
{
    const char* const what =
        direction == Direction::Read ? "Reading register value for " : "Writing register value for ";
    TransferResult result;
    const ProgressShown shown(progress_, static_cast<int>(registers.size()));
    for (const auto& object : registers) {
        if (!Announce(*object, what, result))
            break;
        const Marks marks(object);
        if (Succeeds([&] { transfer(*object); }, result)) {
            ++result.done;
        } else {
            marks.Restore();
            if (direction == Direction::Write)
                object->IsDirty(true); // the board does not have it
            ++result.failed;
        }
        if (progress_)
            progress_->TickProgress(1);
        result.stuck = counts_.boardStuck;
        result.stopped = result.failed > kFailuresTolerated;
        if (result.stopped || result.stuck)
            break;
    }
    return result;
}

TransferResult RegisterTransfer::Read(const Registers& registers)
{
    return Run(registers, Direction::Read,
               [this](RegisterObject& object) { object.ReadValue(device_, aspiOf_(object)); });
}

TransferResult RegisterTransfer::Write(const Registers& registers)
{
    return Run(registers, Direction::Write,
               [this](RegisterObject& object) { object.WriteValue(device_, aspiOf_(object)); });
}

std::vector<std::shared_ptr<RegisterObject>> AllRegisters(IConfigController& controller)
{
    std::vector<std::shared_ptr<RegisterObject>> registers;
    const std::int16_t count = controller.GetI2CRegisterCount();
    registers.reserve(static_cast<std::size_t>(count));
    for (std::int16_t i = 0; i < count; ++i)
        registers.push_back(controller.GetI2CRegister(i));
    return registers;
}

std::vector<std::shared_ptr<RegisterObject>> ChangedRegisters(IConfigController& controller)
{
    auto registers = AllRegisters(controller);
    std::erase_if(registers, [](const auto& object) { return !object->IsDirty(); });
    return registers;
}

}
