#include "platform/hid/ReportDescriptor.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace tarvex {

namespace {

constexpr std::uint8_t kLongItem = 0xFE;

/// One item; its kind is the first byte without the two bits for its length.
struct Item {
    enum Kind : std::uint8_t {
        Input = 0x80,
        Output = 0x90,
        ReportSize = 0x74,
        ReportId = 0x84,
        ReportCount = 0x94,
        Push = 0xA4,
        Pop = 0xB4,
    };
    std::uint8_t kind = 0;
    std::uint32_t value = 0;
};

/// Takes the next item off the bytes; none at their end and when they end within it.
std::optional<Item> TakeItem(std::span<const std::uint8_t>& bytes)
{
    constexpr std::array<std::size_t, 4> kLengths = {0, 1, 2, 4};
    if (bytes.empty())
        return {};
    const bool isLong = bytes[0] == kLongItem;
    const std::size_t header = isLong ? 3 : 1;
    if (bytes.size() < header)
        return {};
    const std::size_t length = isLong ? bytes[1] : kLengths[bytes[0] & 3];
    if (bytes.size() < header + length)
        return {};
    Item item;
    item.kind = bytes[0] & 0xFC;
    for (std::size_t index = 0; !isLong && index < length; ++index)
        item.value |= std::uint32_t{bytes[header + index]} << (8 * index);
    bytes = bytes.subspan(header + length);
    return item;
}

/// The reports of one direction: the bits of each, by id.
class ReportSizes {
public:
    /// Both factors are below 2^32 and a sum stays at the limit, so nothing wraps round.
    void Add(std::uint8_t id, std::uint64_t size, std::uint64_t count)
    {
        bits_[id] = std::min(kMostBits, bits_[id] + std::min(kMostBits, size * count));
    }

    std::uint16_t LongestWithId() const
    {
        const std::uint64_t bits = *std::max_element(bits_.begin(), bits_.end());
        return bits == 0 ? std::uint16_t{0} : static_cast<std::uint16_t>((bits + 7) / 8 + 1);
    }

private:
    static constexpr std::uint64_t kMostBits = 8 * (std::numeric_limits<std::uint16_t>::max() - 1);
    std::array<std::uint64_t, 256> bits_{};
};

/// Follows the items of a descriptor from its beginning.
class DescriptorReader {
public:
    void Take(const Item& item)
    {
        switch (item.kind) {
        case Item::Input:
            input_.Add(now_.id, now_.size, now_.count);
            break;
        case Item::Output:
            output_.Add(now_.id, now_.size, now_.count);
            break;
        case Item::ReportSize:
            now_.size = item.value;
            break;
        case Item::ReportCount:
            now_.count = item.value;
            break;
        case Item::ReportId:
            now_.id = static_cast<std::uint8_t>(item.value);
            numbered_ = true;
            break;
        case Item::Push:
            pushed_.push_back(now_);
            break;
        case Item::Pop:
            Pop();
            break;
        default:
            break;
        }
    }

    ReportLayout Layout() const { return {{input_.LongestWithId(), output_.LongestWithId()}, numbered_}; }

private:
    /// What holds for all following items.
    struct Globals {
        std::uint32_t size = 0;
        std::uint32_t count = 0;
        std::uint8_t id = 0;
    };

    void Pop()
    {
        if (pushed_.empty())
            return;
        now_ = pushed_.back();
        pushed_.pop_back();
    }

    Globals now_;
    std::vector<Globals> pushed_;
    ReportSizes input_;
    ReportSizes output_;
    bool numbered_ = false;
};

}

ReportLayout ReadReportDescriptor(const Bytes& descriptor)
{
    DescriptorReader reader;
    std::span<const std::uint8_t> rest(descriptor);
    while (const auto item = TakeItem(rest))
        reader.Take(*item);
    return reader.Layout();
}

}
