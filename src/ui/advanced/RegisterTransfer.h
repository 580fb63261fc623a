#pragma once

#include "base/IErrorLog.h"
#include "comm/api/IDevice.h"
#include "config/IConfigController.h"
#include "config/IProgress.h"
#include "platform/IWait.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvex {

class RegisterObject;

/// How the transfers of a run ended, as the events of the link in use tell it. Whoever binds the link counts here.
struct TransferCounts {
    int failures = 0;
    int successes = 0;
    bool boardStuck =
        false; ///< sending timed out: the board takes nothing, and each further transfer would wait as long
};

/// What came of a run of register transfers.
struct TransferResult {
    int done = 0; ///< registers transferred without a failure
    int failed = 0;
    bool stopped = false;   ///< ended early after too many failures
    bool stuck = false;     ///< ended early because the board takes nothing
    bool cancelled = false; ///< ended early by Escape
    std::string error;      ///< text of the first error that the link raised, or empty

    bool Complete() const { return failed == 0 && !stopped && !stuck && !cancelled; }
};

/// Reads and writes registers one after another, with progress, and keeps their changed marks honest: a register whose
/// read failed is marked as it was before, one whose write failed stays marked. It speaks to hardware through the
/// device handed in; one object serves one run.
class RegisterTransfer {
public:
    RegisterTransfer(IDevice& device, TransferCounts& counts, IErrorLog& errorLog)
        : device_(device), counts_(counts), errorLog_(errorLog)
    {
        counts_.boardStuck = false;
    }

    /// Shows a run to the user and lets him end it between two registers. Without a progress only the status line tells
    /// what is going on.
    void ShowOn(IProgress* progress, IStatusLine& statusLine, IWait& wait);

    /// What gives each register's address on the network (comm/api/IDevice.h); without it there is none. It may raise,
    /// which then counts as a failure of the register.
    void AddressWith(std::function<std::int16_t(const RegisterObject&)> aspiOf) { aspiOf_ = std::move(aspiOf); }

    TransferResult Read(const std::vector<std::shared_ptr<RegisterObject>>& registers);
    TransferResult Write(const std::vector<std::shared_ptr<RegisterObject>>& registers);

private:
    enum class Direction { Read, Write };
    using Registers = std::vector<std::shared_ptr<RegisterObject>>;
    template <class Transfer> TransferResult Run(const Registers& registers, Direction direction, Transfer transfer);
    bool Announce(const RegisterObject& next, const char* what, TransferResult& result);
    /// Carries out one transfer; false when it failed.
    template <class Transfer> bool Succeeds(Transfer transfer, TransferResult& result);

    IDevice& device_;
    TransferCounts& counts_;
    IErrorLog& errorLog_;
    std::function<std::int16_t(const RegisterObject&)> aspiOf_ = [](const RegisterObject&) { return kNoAspi; };
    IProgress* progress_ = nullptr;
    IStatusLine* statusLine_ = nullptr;
    IWait* wait_ = nullptr;
};

/// All registers of the controller, or only those that are marked changed, in reading order.
std::vector<std::shared_ptr<RegisterObject>> AllRegisters(IConfigController& controller);
std::vector<std::shared_ptr<RegisterObject>> ChangedRegisters(IConfigController& controller);

}
