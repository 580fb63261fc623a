#pragma once

#include "ui/wizards/frame/PulseWidth.h"
#include "ui/wizards/vexlon/VexlonBoard.h"

#include <cstdint>
#include <optional>

namespace tarvex {

/// The single commands of the Options menu that write a register beside the selected element.
class VexlonCommands {
public:
    explicit VexlonCommands(VexlonBoard& board) : board_(board) {}

    /// Makes the monitor synchronize again.
    void ReSync();
    /// Widens or narrows the horizontal sync pulse; only while "Horizontal Position" is being adjusted.
    void StepPulseWidth(Step step);
    /// Moves the upper part of the PLL divider by one and "Fine Tune" to the end from which it goes on in the same
    /// direction; only while "Fine Tune" is being adjusted.
    void ShiftFineTune(Step step);

private:
    bool WriteAndTell(const char* source, const char* name, std::int32_t value);

    VexlonBoard& board_;
    std::optional<std::int32_t> cutShort_; ///< the mode of the board whose last pulse did not come to its end
};

}
