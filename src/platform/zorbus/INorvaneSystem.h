#pragma once

#include <string>

namespace tarvex {

/// The maker's library of the serial device network. It is closed; this interface is where it plugs in.
class INorvaneSystem {
public:
    virtual ~INorvaneSystem() = default;

    /// The library's version, such as 1.1.11.
    virtual std::string Version() = 0;
    /// Whether the library is at least of this version.
    virtual bool MinimumVersion(const std::string& major, const std::string& minor, const std::string& build) = 0;
};

}
