#pragma once

#include "platform/zorbus/FaultRule.h"
#include "platform/zorbus/NodeRecord.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvex {

/// A parameter: the value in use, and the one that is there again after a restart.
struct SimulatedParameter {
    std::int32_t live = 0;
    std::int32_t flash = 0;
    bool isReadable = true;
    bool isWritable = true;
};

/// An enclosure on the simulated network.
struct SimulatedNode {
    NodeRecord record;
    bool isMute = false;     ///< is found, but never answers
    int silenceOfReboot = 0; ///< calls that go unanswered after a restart
    int silence = 0;         ///< calls that still go unanswered
    std::vector<std::int16_t> slots;
    std::map<ParameterPlace, SimulatedParameter> parameters;
};

/// A serial port and what hangs on it.
struct SimulatedPort {
    std::int16_t number = 0;
    std::int32_t baudRate = 9600; ///< the only one at which its nodes answer
    bool isBusy = false;          ///< another program has it
    std::vector<SimulatedNode> nodes;
};

/// The whole simulated network as a description file gives it.
struct SimulatedNetwork {
    std::string version = "1.1.11";
    bool isInstalled = true; ///< false plays a system without the library
    double waitFactor = 1;
    std::map<std::string, std::chrono::milliseconds> waits; ///< by operation
    std::vector<SimulatedPort> ports;
    std::vector<FaultRule> faults;
};

}
