#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tarvex {

/// The register memory of the simulated board: a growable array of 32-bit values whose new entries hold what the
/// growing operation fills in. Kept sparse: only growth steps and written entries are stored.
class DemoMemory {
public:
    /// Makes the index exist: where it lies beyond the end, the memory grows to `lastIndex` (or to the index, if that
    /// is higher) with entries of `fill`. Raises 9 for a negative index and beyond 16 million.
    void Reach(std::int64_t index, std::int64_t lastIndex, std::int32_t fill);
    /// The value at an index that exists; raises 9 for any other, as does Write.
    std::int32_t Read(std::int64_t index) const;
    void Write(std::int64_t index, std::int32_t value);

private:
    struct Growth {
        std::int64_t end; ///< first index beyond the entries of this step
        std::int32_t fill;
    };
    std::int64_t End() const { return growth_.empty() ? 0 : growth_.back().end; }
    void CheckExists(std::int64_t index, const char* source) const;

    std::vector<Growth> growth_; ///< in ascending order of end
    std::unordered_map<std::int64_t, std::int32_t> written_;
};

}
