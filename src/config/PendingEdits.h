#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tarvex {

class IConfigController;
class RegisterObject;

/// Keeps what was changed in the registers and not loaded into the board yet: a register that is read or written while
/// this lives holds what the board has, and the changes come back at its end, marked as before. It needs the controller
/// only at its start.
class PendingEdits {
public:
    /// `except` is the register whose change is meant to go; none for no exception.
    explicit PendingEdits(IConfigController& controller, const RegisterObject* except = nullptr);
    ~PendingEdits();
    PendingEdits(const PendingEdits&) = delete;
    PendingEdits& operator=(const PendingEdits&) = delete;

private:
    std::vector<std::pair<std::shared_ptr<RegisterObject>, std::int32_t>> edits_;
};

}
