#include "platform/xml/XmlDocument.h"

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

}

TEST(XmlDocument, LeavesTextUntrimmedAndLayoutOut)
{
    const XmlDocument document =
        Load("<a>\n  <b> 0:7 </b>\n  <c>  </c>tail&lt;<d>x<!--y-->z</d><e><![CDATA[<&]]></e></a>");
    const XmlElement root = document.Root();
    EXPECT_EQ(root.Content(), "tail<");
    const std::pair<const char*, const char*> cases[] = {{"b", " 0:7 "}, {"c", "  "}, {"d", "x"}, {"e", "<&"}};
    for (const auto& [tag, text] : cases)
        EXPECT_EQ(root.ChildContent(tag), text);
}

TEST(XmlDocument, ReadsBackWhatItWrites)
{
    const std::string awkward = " <&>\"'\r\n\t\xC3\xA4 ";
    XmlDocument document;
    XmlElement root = document.CreateRoot("Data");
    root.SetAttribute("a", awkward);
    root.AddChild("Text", awkward);
    root.AddChild("Blank", " ");
    root.AddChild("Lost").SetContent(std::string_view("x\0y\x1B\xC3+\xED\xA0\x80", 9));
    root.AddCopy(Load(kTree).Root().FirstChild());
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

}
