#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tarvex {

class IConfigController;
class RegisterObject;

/// Puts aside, while it lives, what was changed in the registers and not loaded into the board yet: what is read
/// meanwhile is what the board holds, and the changes come back afterwards, marked as before. It needs the controller
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
