#include "model/BitConversions.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace tarvex {

namespace {

constexpr int kByteBits = 8;
constexpr int kLongBytes = 4;

/// The code of the text's first character in the Latin single-byte code page; that of "?" for one it does not have.
int CharacterCode(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const auto second = text.size() > 1 ? static_cast<unsigned char>(text[1]) : 0;
    const bool twoBytes = first >= 0xC2 && first <= 0xDF && (second & 0xC0) == 0x80;
    if (twoBytes && first <= 0xC3)
        return (first & 0x1F) << 6 | (second & 0x3F);
    return twoBytes || first >= 0xE0 ? '?' : first;
}

/// Takes the list form of a bit string one character at a time. A range is open from its colon to the digit that ends
/// it; its first position was marked when its own digit came.
class BitStringParser {
public:
    explicit BitStringParser(Bits& bits) : bits_(bits) { bits_.assign(kByteBits, false); }

    std::int16_t Count() const { return count_; }

    void TakeDigit(int digit)
    {
        const int first = inRange_ ? last_ + 1 : digit;
        for (int position = first; position <= digit; ++position)
            Mark(static_cast<std::size_t>(position));
        last_ = inRange_ ? -1 : digit;
        inRange_ = false;
    }
    void TakeComma() { last_ = -1; }
    void TakeColon() { inRange_ = true; }

private:
    // The array grows with the marks made, repeats included, and to every position that is named.
    void Mark(std::size_t position)
    {
        while (count_ > bound_)
            bound_ *= 2;
        const std::size_t size = std::max(static_cast<std::size_t>(bound_), position) + 1;
        if (size > bits_.size())
            bits_.resize(size, false);
        bits_[position] = true;
        count_ = ToInt16(count_ + 1, "Function ParseBitString");
    }

    Bits& bits_;
    int last_ = -1;
    int bound_ = kByteBits - 1;
    bool inRange_ = false;
    std::int16_t count_ = 0;
};

}

std::int16_t ParseBitString(std::string_view text, Bits& bits)
{
    BitStringParser parser(bits);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        if (character >= '0' && character <= '9')
            parser.TakeDigit(character - '0');
        else if (character == ',')
            parser.TakeComma();
        else if (character == ':')
            parser.TakeColon();
        else
            Raise(ObjectError(100), "Function ParseBitString",
                  "Invalid character " + std::to_string(CharacterCode(text.substr(i))) + " in parse string");
    }
    return parser.Count();
}

Bits ByteToBits(std::uint8_t byte)
{
    Bits bits(kByteBits);
    for (int i = 0; i < kByteBits; ++i)
        bits[static_cast<std::size_t>(i)] = (byte >> i & 1) != 0;
    return bits;
}

std::uint8_t BitsToByte(const Bits& bits)
{
    if (bits.size() > kByteBits)
        Raise(ObjectError(1), "Function:BitsToByte",
              "Too many bits, " + std::to_string(bits.size()) + ", passed to convert to byte, max is 8");
    unsigned byte = 0;
    for (std::size_t i = 0; i < bits.size(); ++i)
        byte |= bits[i] ? 1U << i : 0U;
    return static_cast<std::uint8_t>(byte);
}

std::uint8_t BitStringToByte(std::string_view digits)
{
    const std::string_view trimmed = TrimBlanks(digits);
    if (trimmed.size() > kByteBits)
        Raise(ObjectError(0), "Function:BitStringToByte", "source bitString represents more than 8 bits");
    unsigned byte = 0;
    for (const char digit : trimmed)
        byte = byte << 1 | (digit == '1' ? 1U : 0U);
    return static_cast<std::uint8_t>(byte);
}

Bits Extract8Bits(const Bits& bits, std::int16_t start, std::int16_t count)
{
    const int end = start + count;
    if (static_cast<std::int64_t>(bits.size()) < end)
        Raise(ObjectError(0), "Function:Extract8Bits",
              "Not enough bits to extract beginning at " + std::to_string(start) + " thru " + std::to_string(end));
    Bits result(kByteBits, false);
    for (int i = 0; i < count; ++i)
        CheckedAt(result, i, "Function:Extract8Bits") = CheckedAt(bits, start + i, "Function:Extract8Bits");
    return result;
}

std::int32_t BytesToLong(const Bytes& bytes, std::int32_t count)
{
    if (count > kLongBytes)
        Raise(10, "Function:BytesToLong", std::to_string(count) + " bytes is too many to convert to long, max is 4");
    if (count < 1)
        RaiseRuntime(kErrTypeMismatch, "Function:BytesToLong");
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << kByteBits | CheckedAt(bytes, i, "Function:BytesToLong");
    return static_cast<std::int32_t>(value);
}

std::int16_t LongToBytes(std::int32_t value, Bytes& bytes)
{
    if (value < 0)
        Raise(10, "Function:LongToBytes", "Cannot convert a negative long to bytes");
    bytes.assign(kLongBytes, 0);
    std::int16_t significant = 1;
    for (std::int16_t i = 0; i < kLongBytes; ++i) {
        const auto byte = static_cast<std::uint8_t>(value >> kByteBits * i & 0xFF);
        bytes[static_cast<std::size_t>(i)] = byte;
        if (byte != 0)
            significant = static_cast<std::int16_t>(i + 1);
    }
    return significant;
}

Bytes IntToBytes(std::int16_t value)
{
    if (value < 0)
        Raise(10, "Function:IntToBytes", "Cannot convert a negative integer to bytes");
    return {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> kByteBits)};
}

}
