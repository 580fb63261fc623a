#pragma once

#include "ui/wizards/cendra/CendraTarget.h"

#include <cstdint>

namespace tarvex {

class RegisterObject;

/// Selection of several connectors in the tree, and the copy of the current connector's settings to all of them.
class CendraCopy {
public:
    explicit CendraCopy(CendraTarget& target) : target_(target) {}

    /// Shows the check boxes in the tree, or hides them, which gives the selection up.
    void SelectMultiChannels();
    /// Copies register by register. A register that fails is told, and the next one is copied; a lost link ends it.
    void LoadAllConfigElements();

private:
    bool CopyTo(std::uint16_t connector);
    bool CopyRegister(RegisterObject& each, std::uint16_t connector);

    CendraTarget& target_;
};

}
