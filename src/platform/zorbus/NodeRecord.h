#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// What the network library tells about one node, an enclosure on the serial network.
struct NodeRecord {
    std::int32_t nodeId = 0;
    std::int32_t enclosureType = 0; ///< type code, such as 1 for a Kestra
    std::uint8_t qualifier = 0;
    std::string description;
    std::string name;
    std::string firmwareVersion;
};

}
