#pragma once

#include "platform/zorbus/SimulatedNetwork.h"

#include <string>

namespace tarvex {

class IFileSystem;

/// The file that keeps the saved values of the simulated nodes from one run to the next. Without a path nothing is
/// kept, and no file system is needed.
class FlashFile {
public:
    FlashFile(IFileSystem* files, std::string path) : files_(files), path_(std::move(path)) {}

    /// Brings the saved values into the flash of the network's nodes; what no longer fits the network is passed over. A
    /// missing file changes nothing; raises 0x80040001 for one that cannot be read.
    void Load(SimulatedNetwork& network) const;
    /// Writes down the flash of all nodes; raises what writing a file raises.
    void Save(const SimulatedNetwork& network) const;

private:
    IFileSystem* files_;
    std::string path_;
};

}
