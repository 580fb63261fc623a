#pragma once

#include "platform/IFileSystem.h"
#include "platform/zorbus/INorvaneSystem.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvex {

/// Every call of the network library, one line each, written to the files that were opened:
/// "PingNode(0x1A2B, 1) = ok: True".
class CallJournal {
public:
    explicit CallJournal(IFileSystem* files) : files_(files) {}

    /// Writes to this file, too, from now on, once for each call; false when it cannot be opened.
    bool Open(const std::string& path);
    void Write(const std::string& call, NorvaneStatus status, const std::string& results);

private:
    IFileSystem* files_; ///< none: nothing can be opened
    std::vector<std::unique_ptr<ITextStream>> streams_;
    std::vector<std::string> paths_;
};

/// "True" or "False".
std::string BoolText(NorvaneBool value);

}
