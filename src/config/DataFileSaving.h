#pragma once

#include "base/ProgramState.h"
#include "config/IConfigController.h"
#include "config/TarvexData.h"
#include "platform/IClock.h"
#include "platform/IFileSystem.h"

#include <string>

namespace tarvex {

/// What a save needs beside the settings.
struct DataFileServices {
    const ProgramState& state;
    IFileSystem& files;
    IClock& clock;
};

/// Saves the values of all registers of the controller's device as a data file: the device's component of the init file
/// with a Value in each register. The file is replaced in one step, so that a failure leaves the old one. Raises 101
/// when the init file lacks a register list, 5 when it lacks the device, and what replacing the file raises.
void SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path);

}
