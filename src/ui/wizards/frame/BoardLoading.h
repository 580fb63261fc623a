#pragma once

#include "ui/wizards/frame/IWizardHost.h"

#include <cstdint>
#include <string>

namespace tarvex {

class RegisterObject;

/// Puts the settings of a data file onto the board. A product makes one for each file that it opens, inside OpenFile.
class BoardLoading {
public:
    /// `target` ends the message about registers that could not be written; `aspi` goes with every transfer.
    BoardLoading(IWizardHost& host, std::string target, std::int16_t aspi);

    /// Tries whether the board can be written now, loads the file and writes all its registers. False when it was not
    /// applied, which the user has been told; the board then holds what it held before, or the link is lost. A register
    /// that fails is told, and the next one is written. Raises 201 and 0x80040001 when the try fails in transit.
    bool Load(const std::string& path);

private:
    bool IsOfThisBoard(const std::string& path);
    bool IsPresetWritable();
    void Restore(std::int32_t value);
    void RestoreQuietly(std::int32_t value);
    bool WriteProbed(std::int32_t value);
    bool ReadProbed();
    bool WriteAll();
    bool WriteOne(const std::string& name);
    RegisterObject& Probed() const;

    IWizardHost& host_;
    std::string target_;
    std::int16_t aspi_;
};

/// The value beside the one that a register holds, for a try whether the board takes it.
std::int32_t ProbeValue(std::int32_t value, std::int32_t maximum);

}
