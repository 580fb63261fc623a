#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

/// Where a parameter lies in a node.
struct ParameterPlace {
    std::int16_t aspi = 0;
    std::int16_t baseAddress = 0;
    std::int16_t parameterId = 0;

    auto operator<=>(const ParameterPlace&) const = default;
};

/// What a fault rule looks at: the operation and what it addresses.
struct CallAddress {
    std::string operation;
    std::optional<std::int32_t> port = std::nullopt;
    std::optional<std::int32_t> node = std::nullopt;
    std::optional<ParameterPlace> place = std::nullopt;
};

/// Makes calls fail: those of one operation, or of all, that meet what is given of an address.
struct FaultRule {
    enum class Kind { BadStatus, Refused };

    std::string operation; ///< empty for all
    std::optional<std::int32_t> port;
    std::optional<std::int32_t> node;
    std::optional<std::int32_t> aspi;
    std::optional<std::int32_t> baseAddress;
    std::optional<std::int32_t> parameterId;
    std::int32_t after = 0;  ///< calls that are let through first
    std::int32_t times = -1; ///< calls that fail then; -1 = all
    Kind kind = Kind::BadStatus;

    /// Whether this call, which is counted, fails.
    bool Strikes(const CallAddress& call);

private:
    bool Concerns(const CallAddress& call) const;
};

}
