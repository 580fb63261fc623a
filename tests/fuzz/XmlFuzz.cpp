#include "Fuzz.h"

#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlGuard.h"

namespace tarvex {

namespace {

bool IsLayout(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

/// Every element has the same tag and text in both trees. Text of blanks only may be layout, which writing changes.
void CheckSame(XmlElement left, XmlElement right, int depth)
{
    Require(depth <= kXmlMaxDepth, "the depth is limited");
    Require(left.Tag() == right.Tag(), "the tag is read back");
    Require(IsLayout(left.Content()) || left.Content() == right.Content(), "the text is read back");
    XmlElement other = right.FirstChild();
    for (XmlElement child = left.FirstChild(); child; child = child.NextSibling()) {
        Require(static_cast<bool>(other), "no child is lost");
        Require(child.Parent() == left, "a child knows its parent");
        CheckSame(child, other, depth + 1);
        other = other.NextSibling();
    }
    Require(!other, "no child is added");
}

XmlDocument Reload(const XmlDocument& document)
{
    XmlDocument again;
    Require(again.LoadText(document.ToText()), "what is written can be read");
    CheckSame(document.Root(), again.Root(), 1);
    return again;
}

void CheckLoading(std::string_view text)
{
    XmlDocument document;
    if (!document.LoadText(text)) {
        Require(!document.Root() && document.LastErrorText().starts_with("line "), "a refusal says where");
        return;
    }
    XmlDocument laidOut = Reload(Reload(document));
    Require(laidOut.ToText() == Reload(laidOut).ToText(), "what was laid out once is written the same again");

    XmlDocument built;
    XmlElement copy = built.CreateRoot("root").AddPart(text, [](XmlElement root) { return root; });
    CheckSame(document.Root(), copy, 1);
    copy.SetAttribute("text", text);
    copy.SetContent(text);
    CheckSame(copy, copy, 1);
}

/// Any bytes can be stored, and what is stored can be loaded.
void CheckStoring(std::string_view text)
{
    XmlDocument document;
    XmlElement root = document.CreateRoot("root");
    root.SetAttribute("text", text);
    root.AddChild("text", text);
    const XmlDocument again = Reload(document);
    Require(again.Root().Attribute("text") == root.Attribute("text"), "an attribute is read back");
    Require(again.Root().ChildContent("text") == root.ChildContent("text"), "even blanks are read back");
}

}

void Check(std::string_view text)
{
    CheckLoading(text);
    CheckStoring(text);
}

}
