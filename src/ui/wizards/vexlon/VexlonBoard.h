#pragma once

#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/vexlon/VexlonTiming.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class RegisterObject;

/// The board's registers by their names, as the parts of the Vexlon wizard use them. They are asked of the controller
/// each time, since another target or a data file replaces them all. Transfers belong inside the host's Read or Write.
class VexlonBoard {
public:
    /// Hands over the frame, before everything else.
    void Attach(IWizardHost& host) { host_ = &host; }
    IWizardHost& Host() const { return *host_; }

    /// Raises 5 for an unknown name.
    RegisterObject& Register(const std::string& name) const;
    /// The value last known.
    std::int32_t Value(const std::string& name) const;
    /// Reads the register from the board.
    std::int32_t Read(const std::string& name) const;
    /// The same as an operation of its own, from which a command works out what it writes. None when the link is down;
    /// raises 0x80040001 with `source` when the board does not deliver it.
    std::optional<std::int32_t> ReadNow(const char* source, const std::string& name) const;
    /// Sets the register and writes it to the board.
    void Write(const std::string& name, std::int32_t value) const;
    void Write(const std::vector<RegisterValue>& values) const;

private:
    IWizardHost* host_ = nullptr;
};

}
