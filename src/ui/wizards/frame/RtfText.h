#pragma once

#include "ui/wizards/frame/RtfReader.h"

#include <cstdint>
#include <string>

namespace tarvex {

/// The character of a byte in the code page Windows 1252; one that has none becomes U+FFFD.
std::uint32_t FromWindows1252(unsigned char byte);

/// Gathers characters of one style and hands them to a sink together.
class RtfText {
public:
    explicit RtfText(IRtfSink& sink) : sink_(sink) {}

    void Add(std::uint32_t character, const RtfStyle& style);
    /// One unit of UTF-16; the two halves of a pair come one after the other, a half alone becomes U+FFFD.
    void AddUtf16(std::uint16_t unit, const RtfStyle& style);
    void EndParagraph();
    void Flush();

private:
    void Append(std::uint32_t character, const RtfStyle& style);
    void EndPair();

    IRtfSink& sink_;
    std::string text_;
    RtfStyle style_;
    std::uint16_t firstHalf_ = 0;
};

}
