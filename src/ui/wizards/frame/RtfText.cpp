#include "ui/wizards/frame/RtfText.h"

#include <array>

namespace tarvex {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

constexpr std::array<std::uint16_t, 32> kWindows1252{0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                                     0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

bool IsFirstHalf(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsSecondHalf(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void AppendUtf8(std::string& text, std::uint32_t character)
{
    const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto follow = [&](int shift) { put(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        follow(0);
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        follow(6);
        follow(0);
    } else {
        put(0xF0 | character >> 18);
        follow(12);
        follow(6);
        follow(0);
    }
}

}

std::uint32_t FromWindows1252(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte;
}

void RtfText::Add(std::uint32_t character, const RtfStyle& style)
{
    EndPair();
    Append(character, style);
}

void RtfText::AddUtf16(std::uint16_t unit, const RtfStyle& style)
{
    if (IsSecondHalf(unit) && firstHalf_ != 0) {
        const std::uint32_t character = 0x10000U + ((firstHalf_ - 0xD800U) << 10) + (unit - 0xDC00U);
        firstHalf_ = 0;
        Append(character, style);
        return;
    }
    EndPair();
    if (IsFirstHalf(unit)) {
        if (!(style == style_))
            Flush();
        style_ = style;
        firstHalf_ = unit;
    } else {
        Append(IsSecondHalf(unit) ? kReplacement : unit, style);
    }
}

void RtfText::Append(std::uint32_t character, const RtfStyle& style)
{
    if (character < 0x20 && character != '\t')
        return;
    if (!(style == style_)) {
        if (!text_.empty())
            sink_.Text(text_, style_);
        text_.clear();
        style_ = style;
    }
    AppendUtf8(text_, character);
}

void RtfText::EndPair()
{
    if (firstHalf_ == 0)
        return;
    firstHalf_ = 0;
    AppendUtf8(text_, kReplacement);
}

void RtfText::EndParagraph()
{
    Flush();
    sink_.EndParagraph();
}

void RtfText::Flush()
{
    EndPair();
    if (!text_.empty())
        sink_.Text(text_, style_);
    text_.clear();
}

}
