#pragma once

#include "platform/zorbus/INorvaneSystem.h"

namespace tarvex {

/// Stands in for the maker's library of the serial network, which cannot be had on this system.
class SimulatedNorvaneSystem : public INorvaneSystem {
public:
    std::string Version() override;
    /// The parts are compared as numbers; a part that is none is never reached.
    bool MinimumVersion(const std::string& major, const std::string& minor, const std::string& build) override;
};

}
