#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvex {

/// How a piece of rich text looks.
struct RtfStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::int32_t halfPoints = 24;
    std::optional<std::uint32_t> color; ///< 0xRRGGBB; none for the colour of the surroundings

    bool operator==(const RtfStyle&) const = default;
};

/// Where rich text goes, piece by piece.
class IRtfSink {
public:
    virtual ~IRtfSink() = default;
    /// A piece within a paragraph, UTF-8, not empty; tabs are tab characters.
    virtual void Text(std::string_view text, const RtfStyle& style) = 0;
    virtual void EndParagraph() = 0;
};

enum class RtfResult { Read, NotRichText, TooLarge, TooDeep };

/// The largest rich text and the deepest nesting of groups that are read.
inline constexpr std::size_t kLargestRtf = std::size_t{256} << 10;
inline constexpr std::size_t kDeepestRtf = 100;

/// Reads rich text: groups, bold, italic, underline, size, colour, paragraph, line, tab, \'hh (Windows 1252) and \u.
/// Unknown words are passed over, and destinations that show no text with all they hold. What was read before a refusal
/// has reached the sink.
RtfResult ReadRtf(std::string_view rtf, IRtfSink& sink);

}
