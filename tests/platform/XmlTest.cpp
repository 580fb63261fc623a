#include "platform/files/PosixFileSystem.h"
#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlFiles.h"
#include "platform/xml/XmlGuard.h"
#include "support/TemporaryFolder.h"

#include <ctime>
#include <gtest/gtest.h>

namespace tarvex {
namespace {

XmlDocument Load(std::string_view text)
{
    XmlDocument document;
    EXPECT_TRUE(document.LoadText(text)) << document.LastErrorText();
    return document;
}

std::string ErrorOf(std::string_view text)
{
    XmlDocument document;
    EXPECT_FALSE(document.LoadText(text));
    EXPECT_FALSE(document.Root());
    return document.LastErrorText();
}

constexpr std::string_view kTree =
    "<Root><!-- c --><Register><Name>A</Name><Bits> 0:7 </Bits></Register><Other/></Root>";

TEST(XmlDocument, ReadsBackWhatItWrites)
{
    const std::string awkward = " <&>\"'\r\n\t\xC3\xA4 ";
    XmlDocument document;
    XmlElement root = document.CreateRoot("Data");
    root.SetAttribute("a", awkward);
    root.AddChild("Text", awkward);
    root.AddChild("Blank", " ");
    root.AddChild("Lost").SetContent(std::string_view("x\0y\x1B\xC3+\xED\xA0\x80", 9));
    root.AddPart(kTree, [](XmlElement tree) { return tree.FirstChild(); });
    const XmlDocument again = Load(document.ToText());
    EXPECT_EQ(again.Root().Attribute("a"), awkward);
    EXPECT_EQ(again.Root().ChildContent("Text"), awkward);
    EXPECT_EQ(again.Root().ChildContent("Blank"), " ");
    EXPECT_EQ(again.Root().ChildContent("Lost"), "x?y??+???"); // what no file can hold
    EXPECT_EQ(again.Root().Child("Register").ChildContent("Bits"), " 0:7 ");
    EXPECT_EQ(again.ToText(), document.ToText());
}

TEST(XmlDocument, NeverTakesAFileCutShortForAWholeOne)
{
    for (std::size_t size = 0; size < kTree.size(); ++size)
        EXPECT_NE(ErrorOf(kTree.substr(0, size)), "") << size;
    EXPECT_TRUE(ErrorOf("<a>\n  <b></c>\n</a>").starts_with("line 2, column "));
}

std::string Repeat(std::string_view piece, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

std::string Nested(int depth) { return Repeat("<a>", depth) + Repeat("</a>", depth); }

std::string Attributes(int count)
{
    std::string text = "<a";
    for (int i = 0; i < count; ++i)
        text += " n" + std::to_string(i) + "=\"/>\"";
    return text + "/>";
}

/// What the guard says, with the place; empty when it lets the text pass.
std::string Refusal(std::string_view text)
{
    const auto refusal = CheckXml(text);
    return refusal ? XmlPlace(text, refusal->offset) + ": " + refusal->text : "";
}

bool Mentions(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(XmlGuard, KeepsTheLimits)
{
    EXPECT_EQ(Refusal(Nested(64)), "");
    EXPECT_EQ(Refusal(Nested(65)), "line 1, column 193: elements are nested more than 64 deep");
    EXPECT_EQ(Refusal(Attributes(64)), "");
    EXPECT_TRUE(Mentions(Refusal(Attributes(65)), "more than 64 attributes"));
    const auto tooMany = CheckXml(Repeat("<?p?>", kXmlMaxPieces + 1)); // the place would take long to tell
    EXPECT_TRUE(tooMany && Mentions(tooMany->text, "more than 4000000 tags"));
}

TEST(XmlGuard, IsNotFooledByMarkupWithinMarkup)
{
    const std::string deep = Repeat("<a>", 65) + "<!DOCTYPE";
    for (const std::string& harmless : {"<!--" + deep + "-->", "<![CDATA[" + deep + "]]>", "<?p " + deep + "?>"})
        EXPECT_EQ(Refusal("<r>" + harmless + "</r>"), "") << harmless;
    EXPECT_EQ(Refusal("<r a='>\"--' b=\"/>'\"/>"), "");
    EXPECT_TRUE(Mentions(Refusal("<r a='>\"<!--' b=\"/>'\"/>"), "holds a <"));
    // What hides the nesting from a careless look must not hide it here.
    for (const char* hiding : {"<!-- > -->", "<![CDATA[</a>]]>", "<?p </a>?>", "<b x=\"/>\"/>"})
        EXPECT_NE(Refusal("<r>" + Repeat("<a>" + std::string(hiding), 65)), "") << hiding;
}

TEST(XmlGuard, NamesWhatIsWrongAndWhere)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", "line 1, column 1: there is no root element"},
        {"<!DOCTYPE a><a/>", "line 1, column 1: a document type declaration is not allowed"},
        {"<a/><b/>", "line 1, column 5: there is more than one root element"},
        {"<a/>x", "line 1, column 5: there is text outside the root element"},
        {"<a>", "line 1, column 4: the document ends inside an element"},
        {"</a>", "line 1, column 1: there is an end tag without a start tag"},
        {"<a>\n\xC3\xA4&x;</a>", "line 2, column 2: the & does not begin a known entity or character reference"},
        {"<a>&#xD800;</a>", "line 1, column 4: the & does not begin a known entity or character reference"},
        {"<a b/>", "line 1, column 5: the attribute has no value"},
        {"<a b=c/>", "line 1, column 6: the attribute value has no quotation marks"},
        {"<a b='c/>", "line 1, column 6: the attribute value is not closed"},
        {"<a b='c'd='e'/>", "line 1, column 9: the start tag is not well-formed"},
        {"<a><!-- </a>", "line 1, column 4: the comment is not closed"},
        {"<a> <?xml version='1.0'?></a>", "line 1, column 5: the XML declaration does not stand at the beginning"},
        {std::string_view("<a>\0</a>", 8), "line 1, column 4: there is a NUL byte"},
        {"<a>\x01</a>", "line 1, column 4: there is a control character"},
        {"<a>\xE4</a>", "line 1, column 4: the bytes are not valid UTF-8"},
        {std::string_view("\xFF\xFE<\0a\0", 6), "line 1, column 1: the text is not in UTF-8"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA4</a>",
         "line 1, column 1: the declared encoding is not UTF-8"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Refusal(text), expected) << text;
    for (const char* good : {"<?xml version='1.0' encoding='utf-8'?><a>\xC3\xA4&#228;</a>",
                             "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>plain</a>\n"})
        EXPECT_EQ(Refusal(good), "") << good;
}

TEST(XmlGuard, TellsMalformedUtf8FromGood)
{
    for (const char* good : {"12345678\t12345678", "\xC3\xA4", "\xE2\x82\xAC", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(FindBadByte(good), std::string_view::npos) << good;
    for (const char* bad : {"\x80", "\xC0\x80", "\xC3", "\xC3(", "\xE0\x80\x80", "\xED\xA0\x80", "\xE2\x82",
                            "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\x1F", "\x0B"})
        EXPECT_EQ(FindBadByte("123456789" + std::string(bad)), 9U) << bad;
}

TEST(XmlGuard, RefusesHostileFilesWithinASecond)
{
    const TemporaryFolder folder;
    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 \"ha\">";
    for (int i = 1; i < 30; ++i)
        bomb += "<!ENTITY e" + std::to_string(i) + " \"" + Repeat("&e" + std::to_string(i - 1) + ";", 10) + "\">";
    const std::pair<std::string, std::string> cases[] = {
        {folder.Write("deep.xml", Nested(1000000)), "nested more than 64 deep"},
        {folder.Write("wide.xml", Attributes(100000)), "more than 64 attributes"},
        {folder.Write("bomb.xml", bomb + "]><a>&e29;</a>"), "document type declaration"},
        {folder.Write("huge.xml", ""), "larger than 67108864 bytes"},
    };
    std::filesystem::resize_file(folder.File("huge.xml"), 1ULL << 30);
    PosixFileSystem files;
    for (const auto& [path, expected] : cases) {
        XmlDocument document;
        const std::clock_t begin = std::clock(); // of the processor, whatever else the machine does
        EXPECT_FALSE(LoadXmlFile(files, path, document)) << path;
        EXPECT_LT(std::clock() - begin, CLOCKS_PER_SEC) << path;
        EXPECT_TRUE(Mentions(document.LastErrorText(), expected)) << document.LastErrorText();
    }
}

}
}
