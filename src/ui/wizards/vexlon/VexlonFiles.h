#pragma once

#include "ui/wizards/vexlon/VexlonBoard.h"

#include <cstdint>
#include <string>

namespace tarvex {

/// Puts the settings of a data file onto the board.
class VexlonFiles {
public:
    explicit VexlonFiles(VexlonBoard& board) : board_(board) {}

    /// Tries whether the board can be written now, loads the file and writes all its registers. False when it was not
    /// applied, which the user has been told.
    bool Open(const std::string& path);

private:
    bool IsPresetWritable();
    void Restore(std::int32_t value);
    void WriteAll();
    bool WriteOne(const std::string& name);

    VexlonBoard& board_;
};

}
