#pragma once

#include "base/ProgramState.h"
#include "config/IConfigController.h"
#include "config/TarvexData.h"
#include "platform/IClock.h"
#include "platform/IFileSystem.h"

#include <functional>
#include <string>

namespace tarvex {

/// What a save needs beside the settings.
struct DataFileServices {
    const ProgramState& state;
    IFileSystem& files;
    IClock& clock;
};

/// Saves the values of all registers of the controller's device as a data file: the device's component of the init file
/// with a Value in each register. Either the new file is on disk when this returns, or it raises what the operations of
/// TarvexData raise and the old file is there as it was. `addParts` adds what else the file is to hold, before the
/// values; when it returns false nothing is saved, and the answer is false.
bool SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path, const std::function<bool(TarvexData&)>& addParts = {});

}
