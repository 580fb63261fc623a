#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tarvex {

/// The register memory of the simulated board: a growable array of 32-bit values whose new entries hold what the
/// growing operation fills in. Kept sparse: only growth steps and written entries are stored.
class DemoMemory {
public:
    /// The value at an index; one beyond the end first grows the memory to `lastIndex` (or to the index, if that is
    /// higher) with entries of 1. Raises 9 for a negative index and beyond 16 million.
    std::int32_t Read(std::int64_t index, std::int64_t lastIndex);
    /// Stores a value; growing fills new entries with 128.
    void Write(std::int64_t index, std::int64_t lastIndex, std::int32_t value);

private:
    struct Growth {
        std::int64_t end; ///< first index beyond the entries of this step
        std::int32_t fill;
    };
    void GrowTo(std::int64_t index, std::int64_t lastIndex, std::int32_t fill);

    std::vector<Growth> growth_;
    std::unordered_map<std::int64_t, std::int32_t> written_;
};

}
