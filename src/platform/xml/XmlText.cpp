#include "platform/xml/XmlGuard.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tarvex {

namespace {

std::uint8_t ByteAt(std::string_view text, std::size_t position)
{
    return position < text.size() ? static_cast<std::uint8_t>(text[position]) : 0;
}

bool IsContinuation(std::uint8_t byte) { return (byte & 0xC0U) == 0x80; }

bool IsPlain(std::uint8_t byte)
{
    return byte < 0x80 && (byte >= 0x20 || byte == '\t' || byte == '\n' || byte == '\r');
}

/// True when the eight bytes from `bytes` on are printable ASCII; a line end makes it false.
bool AreEightPrintable(const char* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    constexpr std::uint64_t kHigh = 0x8080808080808080U;
    constexpr std::uint64_t kBlanks = 0x2020202020202020U;
    return ((word | (word - kBlanks)) & kHigh) == 0;
}

/// Whether the second byte keeps the sequence short enough, outside the surrogates and within U+10FFFF.
bool IsSecondAllowed(std::uint8_t lead, std::uint8_t second)
{
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

/// Bytes of the UTF-8 sequence that begins here, 0 for a malformed one.
std::size_t SequenceLength(std::string_view text, std::size_t position)
{
    const std::uint8_t lead = ByteAt(text, position);
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i)
        if (!IsContinuation(ByteAt(text, position + i)))
            return 0;
    return IsSecondAllowed(lead, ByteAt(text, position + 1)) ? length : 0;
}

}

std::size_t FindBadByte(std::string_view text, std::size_t from)
{
    std::size_t position = from;
    while (position < text.size()) {
        while (text.size() - position >= 8 && AreEightPrintable(text.data() + position))
            position += 8;
        if (position == text.size())
            break;
        const std::size_t length = IsPlain(ByteAt(text, position)) ? 1 : SequenceLength(text, position);
        if (length == 0)
            return position;
        position += length;
    }
    return std::string_view::npos;
}

std::string XmlPlace(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::string_view sameLine = before.substr(before.rfind('\n') + 1);
    const auto column = 1 + std::count_if(sameLine.begin(), sameLine.end(), [](char letter) {
                            return !IsContinuation(static_cast<std::uint8_t>(letter));
                        });
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

}
