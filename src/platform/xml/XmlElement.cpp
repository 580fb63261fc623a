#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlGuard.h"
#include "platform/xml/XmlParsing.h"

#include <pugixml.hpp>

namespace tarvex {

namespace {

/// The first element among the node and its later siblings.
XmlElement ElementFrom(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return XmlElement(node.internal_object());
}

/// The first element with the tag among the element and its later siblings.
XmlElement TaggedFrom(XmlElement element, std::string_view tag)
{
    while (element && element.Tag() != tag)
        element = element.NextSibling();
    return element;
}

pugi::xml_attribute FindAttribute(pugi::xml_node node, std::string_view name)
{
    for (const pugi::xml_attribute attribute : node.attributes())
        if (name == attribute.name())
            return attribute;
    return {};
}

/// The node after this one in document order, as long as it is below `top`.
pugi::xml_node NextBelow(pugi::xml_node node, pugi::xml_node top)
{
    if (node.first_child())
        return node.first_child();
    while (node != top && !node.next_sibling())
        node = node.parent();
    return node == top ? pugi::xml_node() : node.next_sibling();
}

bool IsTagged(pugi::xml_node node, std::string_view tag)
{
    return node.type() == pugi::node_element && tag == node.name();
}

/// The text as a document can hold it: a byte that no file could give back becomes a question mark.
std::string Storable(std::string_view text)
{
    std::string result(text);
    for (auto bad = FindBadByte(result); bad != std::string::npos; bad = FindBadByte(result, bad))
        result[bad] = '?';
    return result;
}

}

std::string_view XmlElement::Tag() const { return pugi::xml_node(node_).name(); }

std::string_view XmlElement::Content() const { return pugi::xml_node(node_).text().get(); }

void XmlElement::SetContent(std::string_view text) { pugi::xml_node(node_).text().set(Storable(text).c_str()); }

std::string_view XmlElement::Attribute(std::string_view name) const
{
    return FindAttribute(pugi::xml_node(node_), name).value();
}

bool XmlElement::HasAttribute(std::string_view name) const
{
    return !FindAttribute(pugi::xml_node(node_), name).empty();
}

void XmlElement::SetAttribute(std::string_view name, std::string_view value)
{
    pugi::xml_attribute attribute = FindAttribute(pugi::xml_node(node_), name);
    if (!attribute)
        attribute = pugi::xml_node(node_).append_attribute(std::string(name).c_str());
    attribute.set_value(Storable(value).c_str());
}

XmlElement XmlElement::Parent() const
{
    const pugi::xml_node parent = pugi::xml_node(node_).parent();
    return parent.type() == pugi::node_element ? XmlElement(parent.internal_object()) : XmlElement();
}

std::size_t XmlElement::ChildCount() const
{
    std::size_t count = 0;
    for (XmlElement child = FirstChild(); child; child = child.NextSibling())
        ++count;
    return count;
}

XmlElement XmlElement::FirstChild() const { return ElementFrom(pugi::xml_node(node_).first_child()); }

XmlElement XmlElement::NextSibling() const { return ElementFrom(pugi::xml_node(node_).next_sibling()); }

XmlElement XmlElement::Child(std::string_view tag) const { return TaggedFrom(FirstChild(), tag); }

XmlElement XmlElement::NextSame() const { return TaggedFrom(NextSibling(), Tag()); }

std::string_view XmlElement::ChildContent(std::string_view tag) const { return Child(tag).Content(); }

std::vector<XmlElement> XmlElement::Children() const
{
    std::vector<XmlElement> children;
    for (XmlElement child = FirstChild(); child; child = child.NextSibling())
        children.push_back(child);
    return children;
}

std::vector<XmlElement> XmlElement::Children(std::string_view tag) const
{
    std::vector<XmlElement> children;
    for (XmlElement child = Child(tag); child; child = child.NextSame())
        children.push_back(child);
    return children;
}

XmlElement XmlElement::AddChild(std::string_view tag, std::string_view content)
{
    XmlElement child(pugi::xml_node(node_).append_child(std::string(tag).c_str()).internal_object());
    if (!content.empty())
        child.SetContent(content);
    return child;
}

XmlElement XmlElement::AddPart(std::string_view bytes, const std::function<XmlElement(XmlElement root)>& choose)
{
    bytes = WithoutMark(bytes);
    pugi::xml_node node(node_);
    pugi::xml_node whole = node.append_child("whole");
    const bool taken =
        static_cast<bool>(whole.append_buffer(bytes.data(), bytes.size(), kParsing, pugi::encoding_utf8));
    const XmlElement chosen = taken ? choose(ElementFrom(whole.first_child())) : XmlElement();
    const pugi::xml_node part = node.append_move(pugi::xml_node(chosen.node_));
    node.remove_child(whole);
    return XmlElement(part.internal_object());
}

std::vector<XmlElement> XmlElement::Descendants(std::string_view tag) const
{
    const pugi::xml_node top(node_);
    std::vector<XmlElement> found;
    for (pugi::xml_node node = NextBelow(top, top); node; node = NextBelow(node, top))
        if (IsTagged(node, tag))
            found.emplace_back(node.internal_object());
    return found;
}

XmlElement XmlElement::FindDescendant(std::string_view tag, std::string_view content) const
{
    const pugi::xml_node top(node_);
    for (pugi::xml_node node = NextBelow(top, top); node; node = NextBelow(node, top))
        if (IsTagged(node, tag) && content == node.text().get())
            return XmlElement(node.internal_object());
    return {};
}

}
