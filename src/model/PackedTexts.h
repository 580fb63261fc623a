#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex {

/// The texts of a few numbered places in one string, each with a zero character behind it. It costs nothing while all
/// of them are empty, which counts for a device of many registers. A text ends at its first zero character.
class PackedTexts {
public:
    /// Replaces all texts at once, from place 0 up.
    void Assign(std::span<const std::string_view> texts)
    {
        std::string packed;
        for (const auto text : texts)
            packed.append(text.substr(0, text.find('\0'))).push_back('\0');
        packed_.clear();
        if (packed.size() > texts.size())
            packed_ = std::move(packed);
    }

    void Set(std::size_t place, std::string_view text)
    {
        text = text.substr(0, text.find('\0'));
        if (text == Get(place))
            return;
        while (BeginOf(place) == std::string::npos)
            packed_.push_back('\0');
        const std::size_t begin = BeginOf(place);
        const std::size_t end = std::min(packed_.find('\0', begin), packed_.size());
        const std::size_t behind = std::min(end + 1, packed_.size());
        std::string next; // of exactly the size it needs, which a string that grows is not
        next.reserve(begin + text.size() + 1 + packed_.size() - behind);
        next.append(packed_, 0, begin).append(text).push_back('\0');
        next.append(packed_, behind);
        packed_ = std::move(next);
    }

    /// Empty for a place that was never set; valid until a text changes.
    std::string_view Get(std::size_t place) const
    {
        const std::size_t begin = BeginOf(place);
        if (begin == std::string::npos || begin == packed_.size())
            return {};
        return std::string_view(packed_).substr(begin, packed_.find('\0', begin) - begin);
    }

private:
    /// Where the text of the place begins or would be added; npos when a place before it has no text yet.
    std::size_t BeginOf(std::size_t place) const
    {
        std::size_t begin = 0;
        for (; place > 0; --place) {
            const std::size_t end = packed_.find('\0', begin);
            if (end == std::string::npos)
                return end;
            begin = end + 1;
        }
        return begin;
    }

    std::string packed_;
};

}
