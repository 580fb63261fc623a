#include "base/Version.h"

#include "VersionNumbers.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <array>
#include <cstddef>
#include <limits>
#include <optional>

namespace tarvex {

namespace {

using Parts = std::array<std::int32_t, 3>;

std::optional<Parts> ThreeParts(std::string_view version)
{
    const auto pieces = Split(version, ".");
    Parts parts{};
    if (pieces.size() > parts.size())
        return std::nullopt;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto part = TryParseDecimal(pieces[i]);
        if (!part || *part < std::numeric_limits<std::int16_t>::min() ||
            *part > std::numeric_limits<std::int16_t>::max())
            return std::nullopt;
        parts[i] = *part;
    }
    return parts;
}

}

bool IsVersionAtLeast(std::string_view version, std::string_view minimum)
{
    const auto left = ThreeParts(version);
    const auto right = ThreeParts(minimum);
    return left && right && *left >= *right;
}

std::string BuildDateText() { return kBuildDate; }

std::string AppVersionString()
{
    return "v" + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision);
}

}
