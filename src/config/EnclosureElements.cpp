#include "config/EnclosureElements.h"

#include "base/Numbers.h"

namespace tarvex {

XmlElement FindChild(XmlElement parent, std::string_view tag, std::string_view attribute, std::string_view text)
{
    XmlElement child = parent.Child(tag);
    while (child && !(child.HasAttribute(attribute) && child.Attribute(attribute) == text))
        child = child.NextSame();
    return child;
}

XmlElement FindOrAddChild(XmlElement parent, std::string_view tag, std::string_view attribute, std::string_view text)
{
    XmlElement child = FindChild(parent, tag, attribute, text);
    if (child)
        return child;
    child = parent.AddChild(tag);
    child.SetAttribute(attribute, text);
    return child;
}

XmlElement FindEnclosure(XmlElement root, std::int32_t address)
{
    XmlElement enclosure = root.Child(kEnclosureTag);
    while (enclosure && TryParseHex(enclosure.Attribute("zorbusID")) != address)
        enclosure = enclosure.NextSame();
    return enclosure;
}

std::string_view SideTag(ChannelDirection direction)
{
    switch (direction) {
    case ChannelDirection::Source:
        return "Source";
    case ChannelDirection::Destination:
        return "Destination";
    default:
        return {};
    }
}

}
