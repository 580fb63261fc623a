#include "platform/xml/XmlDocument.h"

#include "platform/xml/XmlFiles.h"
#include "support/FakeFileSystem.h"

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

constexpr std::string_view kTree = R"(<Root version="2.5.0">
  <!-- a comment -->
  <Register><Name>A</Name><Bits> 0:7 </Bits></Register>
  <Other/>
  <Register><Name>B</Name><List><Name>A</Name></List></Register>
</Root>)";

}

TEST(XmlDocument, LeavesTextUntrimmedAndLayoutOut)
{
    const XmlDocument document =
        Load("<a>\n  <b> 0:7 </b>\n  <c>  </c>tail&lt;<d>x<!--y-->z</d><e><![CDATA[<&]]></e></a>");
    const XmlElement root = document.Root();
    EXPECT_EQ(root.ChildCount(), 4U);
    EXPECT_EQ(root.Content(), "tail<");
    EXPECT_EQ(root.ChildContent("b"), " 0:7 ");
    EXPECT_EQ(root.ChildContent("c"), "  ");
    EXPECT_EQ(root.ChildContent("d"), "x");
    EXPECT_EQ(root.ChildContent("e"), "<&");
    EXPECT_EQ(root.ChildContent("none"), "");
}

TEST(XmlDocument, WalksOverElementsOnly)
{
    const XmlDocument document = Load(kTree);
    const XmlElement root = document.Root();
    EXPECT_EQ(root.Attribute("version"), "2.5.0");
    EXPECT_FALSE(root.HasAttribute("Version"));
    EXPECT_FALSE(root.Parent());
    EXPECT_EQ(root.FirstChild().Tag(), "Register");
    EXPECT_EQ(root.FirstChild().Parent(), root);
    EXPECT_EQ(root.Child("Register").NextSame().ChildContent("Name"), "B");
    EXPECT_FALSE(root.Child("Other").NextSame());
    EXPECT_EQ(root.Children().size(), 3U);
    EXPECT_EQ(root.Children("Register").size(), 2U);
}

TEST(XmlDocument, FindsDescendantsInDocumentOrderBelowTheElementOnly)
{
    const XmlDocument document = Load(kTree);
    const XmlElement second = document.Root().Children("Register")[1];
    EXPECT_EQ(document.Root().Descendants("Name").size(), 3U);
    EXPECT_EQ(document.Root().Descendants("Name")[1].Content(), "B");
    EXPECT_EQ(second.Descendants("Register").size(), 0U);
    EXPECT_EQ(second.FindDescendant("Name", "A").Parent().Tag(), "List");
    EXPECT_FALSE(document.Root().FirstChild().FindDescendant("Name", "B"));
    EXPECT_FALSE(document.Root().FindDescendant("Bits", "0:7"));
}

TEST(XmlDocument, GivesNothingForNoElement)
{
    XmlElement none;
    none.SetContent("x");
    none.SetAttribute("a", "b");
    EXPECT_FALSE(none || none.FirstChild() || none.NextSibling() || none.Parent() || none.AddChild("a"));
    EXPECT_EQ(none.Tag().size() + none.Content().size() + none.Attribute("a").size() + none.ChildCount(), 0U);
    EXPECT_TRUE(none.Descendants("a").empty());
}

TEST(XmlDocument, ReadsBackWhatItWrites)
{
    const std::string awkward = " <&>\"'\r\n\t\xC3\xA4 ";
    XmlDocument document;
    XmlElement root = document.CreateRoot("Data");
    root.SetAttribute("b", "1");
    root.SetAttribute("a", awkward);
    root.SetAttribute("b", "2");
    root.AddChild("Text", awkward);
    root.AddChild("Blank", " ");
    root.AddChild("Changed", "old").SetContent("new");
    const XmlDocument again = Load(document.ToText());
    EXPECT_EQ(again.Root().Attribute("a"), awkward);
    EXPECT_EQ(again.Root().ChildContent("Text"), awkward);
    EXPECT_EQ(again.Root().ChildContent("Blank"), " ");
    EXPECT_EQ(again.Root().ChildContent("Changed"), "new");
    EXPECT_EQ(again.ToText(), document.ToText());
    EXPECT_NE(document.ToText().find("<Data b=\"2\" a="), std::string::npos);
}

TEST(XmlDocument, StoresOnlyWhatAFileCanHold)
{
    XmlDocument document;
    document.CreateRoot("a").SetContent(std::string_view("x\0y\x1B\xC3+\xED\xA0\x80", 9));
    EXPECT_EQ(Load(document.ToText()).Root().Content(), "x?y??+???");
}

TEST(XmlDocument, CopiesSubtreesBetweenDocuments)
{
    const XmlDocument source = Load(kTree);
    XmlDocument target;
    XmlElement root = target.CreateRoot("Target");
    root.AddChild("First");
    const XmlElement copy = root.AddCopy(source.Root().FirstChild());
    EXPECT_EQ(copy.Parent(), root);
    EXPECT_EQ(copy.ChildContent("Bits"), " 0:7 ");
    EXPECT_EQ(root.Children().back(), copy);
}

TEST(XmlDocument, ReportsWhatTheLibraryRefusesWithLineAndColumn)
{
    const std::string error = ErrorOf("<a>\n  <b></c>\n</a>");
    EXPECT_TRUE(error.starts_with("line 2, column ")) << error;
    EXPECT_NE(error.find("mismatch"), std::string::npos) << error;
}

TEST(XmlDocument, NeverTakesAFileCutShortForAWholeOne)
{
    const std::string whole = Load(kTree).ToText();
    for (std::size_t size = 0; size < kTree.size(); ++size)
        EXPECT_NE(ErrorOf(kTree.substr(0, size)), "") << size;
    EXPECT_EQ(Load(std::string(kTree) + "\n").ToText(), whole);
}

TEST(XmlFiles, SaveAndLoadTheSameDocumentAndSayWhyNot)
{
    FakeFileSystem files;
    XmlDocument document = Load(kTree);
    SaveXmlFile(files, "/a.xml", document);
    XmlDocument loaded;
    EXPECT_TRUE(LoadXmlFile(files, "/a.xml", loaded));
    EXPECT_EQ(loaded.ToText(), document.ToText());
    EXPECT_FALSE(LoadXmlFile(files, "/missing.xml", loaded));
    EXPECT_FALSE(loaded.Root());
    EXPECT_EQ(loaded.LastErrorText(), "File not found");
}

}
