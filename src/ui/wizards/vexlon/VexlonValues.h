#pragma once

#include "ui/wizards/vexlon/VexlonBoard.h"
#include "ui/wizards/vexlon/VexlonColour.h"
#include "ui/wizards/vexlon/VexlonElements.h"

#include <cstdint>
#include <map>
#include <string>

namespace tarvex {

/// Reads and writes the values of the elements, and remembers what the user said to lost differences of the gains: for
/// each gain of each target by itself.
class VexlonValues {
public:
    explicit VexlonValues(VexlonBoard& board) : board_(board) {}

    ElementBounds Bounds(const std::string& element) const;
    /// 0 for an element that the wizard does not know. Brightness and contrast belong to all three colours.
    std::int32_t Read(const std::string& element) const;
    /// False when nothing was written: an unknown element, a value too large, or a question answered with No. `target`
    /// names the board whose answers count.
    bool Write(const std::string& element, std::int32_t value, const std::string& target);

private:
    using ColourNames = std::array<const char*, 3>;
    ColourRegisters Colours(const ColourNames& names) const;
    void WriteColours(const ColourNames& names, const ColourValues& values) const;
    ColourRegisters ReadOffsets() const;
    ColourRegisters ReadGains() const;
    bool WriteBrightness(std::int32_t value) const;
    bool WriteContrast(std::int32_t value, GainAnswers& answers) const;
    GainAnswer AskToLoseDifference(const std::string& gain) const;

    VexlonBoard& board_;
    std::map<std::string, GainAnswers> answers_; ///< by target
};

}
