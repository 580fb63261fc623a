#include "ui/wizards/frame/RtfReader.h"

#include <gtest/gtest.h>
#include <string>

namespace tarvex {

namespace {

/// Writes pieces down with their marks: b, i, u, other sizes and colours, and / for a paragraph's end.
class NotingSink : public IRtfSink {
public:
    void Text(std::string_view text, const RtfStyle& style) override
    {
        notes += style.bold ? "b" : "";
        notes += style.italic ? "i" : "";
        notes += style.underline ? "u" : "";
        notes += style.halfPoints != 24 ? std::to_string(style.halfPoints) : "";
        notes += style.color ? "#" + std::to_string(*style.color) : "";
        notes += "[" + std::string(text) + "]";
    }
    void EndParagraph() override { notes += "/"; }

    std::string notes;
};

std::string Notes(const std::string& body)
{
    NotingSink sink;
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansi " + body + "}", sink), RtfResult::Read);
    return sink.notes;
}

}

TEST(RtfReader, ReadsWhatHelpTipsUse)
{
    const std::pair<const char*, const char*> cases[] = {
        {"{\\b\\fs26 Title}\\par\nplain", "b26[Title]/[plain]"},
        {"a{\\i b{\\ul c}}d", "[a]i[b]iu[c][d]"},
        {"\\b on\\b0 off", "b[on][off]"},
        {"11.25\\'b0 \\'80 \\u8364? \\u-10179?\\u-8704?!",
         "[11.25\xC2\xB0 \xE2\x82\xAC \xE2\x82\xAC \xF0\x9F\x98\x80!]"},
        {"\\uc2\\u937 ??x\\u-10179 ??y", "[\xCE\xA9x\xEF\xBF\xBDy]"},
        {"{\\colortbl;\\red255\\green0\\blue0;}\\cf1 red\\cf0 none\\cf9 none", "#16711680[red][nonenone]"},
        {"{\\fonttbl{\\f0 Arial;}}{\\*\\x y}{\\info{\\title t}}shown", "[shown]"},
        {"\\{a\\tab\\\\\\}\\~\\unknown12 b\\bin3 }}}c", "[{a\t\\}\xC2\xA0"
                                                        "bc]"},
        {"{\\field{\\*\\fldinst X}{\\fldrslt link}}", "[link]"},
        {"open {\\b never closed", "[open ]b[never closed]"},
        {"a}b}}}c\\", "[abc}]"},
        {"\\fs99999999999 x", "400[x]"},
    };
    for (const auto& [body, notes] : cases)
        EXPECT_EQ(Notes(body), notes) << body;
}

TEST(RtfReader, RefusesWhatIsNotMeantToBeShown)
{
    NotingSink sink;
    EXPECT_EQ(ReadRtf("plain text", sink), RtfResult::NotRichText);
    EXPECT_EQ(ReadRtf("{\\rtf1" + std::string(50000, '{'), sink), RtfResult::TooDeep);
    EXPECT_EQ(ReadRtf("{\\rtf1" + std::string(std::size_t{10} << 20, 'x'), sink), RtfResult::TooLarge);
    EXPECT_EQ(sink.notes, "");
}

}
