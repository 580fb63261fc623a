#include "comm/DemoMemory.h"

#include "base/Error.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int64_t kHighestIndex = 16'000'000;

}

void DemoMemory::Reach(std::int64_t index, std::int64_t lastIndex, std::int32_t fill)
{
    if (index < 0 || index > kHighestIndex)
        RaiseRuntime(kErrSubscript, "DemoMemory::Reach");
    if (index >= End())
        growth_.push_back({std::max(index, lastIndex) + 1, fill});
}

std::int32_t DemoMemory::Read(std::int64_t index) const
{
    CheckExists(index, "DemoMemory::Read");
    if (const auto written = written_.find(index); written != written_.end())
        return written->second;
    const auto step = std::upper_bound(growth_.begin(), growth_.end(), index,
                                       [](std::int64_t wanted, const Growth& growth) { return wanted < growth.end; });
    return step->fill;
}

void DemoMemory::Write(std::int64_t index, std::int32_t value)
{
    CheckExists(index, "DemoMemory::Write");
    written_[index] = value;
}

void DemoMemory::CheckExists(std::int64_t index, const char* source) const
{
    if (index < 0 || index >= End())
        RaiseRuntime(kErrSubscript, source);
}

}
