#include "Fuzz.h"

#include "ui/wizards/frame/RtfReader.h"

namespace tarvex {

namespace {

/// How many bytes the character beginning with this byte has in UTF-8; 0 for none.
std::size_t LengthOf(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Checks what reaches the window.
class CheckingSink : public IRtfSink {
public:
    void Text(std::string_view text, const RtfStyle& style) override
    {
        Require(!text.empty(), "a piece of text holds something");
        Require(style.halfPoints >= 2 && style.halfPoints <= 400, "the size can be shown");
        for (std::size_t i = 0; i < text.size();) {
            const auto lead = static_cast<unsigned char>(text[i]);
            Require(lead >= 0x20 || lead == '\t', "there are no control characters");
            const std::size_t length = LengthOf(lead);
            Require(length > 0 && i + length <= text.size(), "characters are whole");
            for (std::size_t k = 1; k < length; ++k)
                Require((static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80, "text is UTF-8");
            Require(lead != 0xED || static_cast<unsigned char>(text[i + 1]) < 0xA0, "there are no halves of pairs");
            i += length;
        }
        size += text.size();
    }
    void EndParagraph() override { ++size; }

    std::size_t size = 0;
};

}

void Check(std::string_view text)
{
    CheckingSink sink;
    ReadRtf(text, sink);
    Require(sink.size <= 4 * text.size(), "the text is not much longer than its source");
}

}
