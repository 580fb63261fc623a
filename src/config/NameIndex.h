#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tarvex {

/// Finds by name where an object stands in its list. It holds positions only and asks the list for the names, which
/// takes a fraction of the memory of a map: a device has many registers. List: a vector of pointers to objects with
/// Name().
template <class List> class NameIndex {
public:
    static constexpr std::size_t kNone = ~std::size_t{0};

    /// Makes room for a list of this many.
    void Reserve(const List& list, std::size_t count)
    {
        std::size_t size = slots_.empty() ? kFewest : slots_.size();
        while (size < 2 * count) // at most half full, so that a search ends soon
            size *= 2;
        if (size == slots_.size())
            return;
        slots_.assign(size, 0);
        for (std::size_t i = 0; i < list.size(); ++i)
            if (auto& slot = slots_[SlotOf(list, list[i]->Name())]; slot == 0)
                slot = static_cast<std::uint32_t>(i + 1);
    }

    /// Notes the name of what will be added to the end of the list; false when the name is taken.
    bool Add(const List& list, std::string_view name)
    {
        Reserve(list, list.size() + 1);
        auto& slot = slots_[SlotOf(list, name)];
        if (slot != 0)
            return false;
        slot = static_cast<std::uint32_t>(list.size() + 1);
        return true;
    }

    /// The position of the first object of exactly this name, or kNone.
    std::size_t Find(const List& list, std::string_view name) const
    {
        const std::uint32_t slot = slots_.empty() ? 0 : slots_[SlotOf(list, name)];
        return slot == 0 ? kNone : slot - 1;
    }

    void Swap(NameIndex& other) noexcept { slots_.swap(other.slots_); }

private:
    static constexpr std::size_t kFewest = 16;

    /// The slot that holds the name, or the empty one that would.
    std::size_t SlotOf(const List& list, std::string_view name) const
    {
        std::size_t at = std::hash<std::string_view>{}(name) & (slots_.size() - 1);
        while (slots_[at] != 0 && list[slots_[at] - 1]->Name() != name)
            at = (at + 1) & (slots_.size() - 1);
        return at;
    }

    std::vector<std::uint32_t> slots_; ///< one more than the position, 0 where there is none; a power of two of them
};

}
