#include "config/InitFileQueries.h"

#include "config/IConfigController.h"

namespace tarvex {

namespace {

/// The recursion is as deep as the file, and no document loads that is nested deeper than a few dozen.
void CollectComponents(XmlElement parent, std::vector<XmlElement>& found)
{
    for (auto child = parent.FirstChild(); child; child = child.NextSibling()) {
        const auto tag = child.Tag();
        if (tag == "FunctionalComponent")
            found.push_back(child);
        if (tag != "Attributes") // a register map, by far the largest part of a file, holds no component
            CollectComponents(child, found);
    }
}

}

std::vector<XmlElement> FunctionalComponents(XmlElement root)
{
    std::vector<XmlElement> found;
    CollectComponents(root, found);
    return found;
}

std::vector<std::string> ComponentNames(XmlElement root)
{
    std::vector<std::string> names;
    for (const XmlElement component : FunctionalComponents(root))
        names.emplace_back(component.ChildContent("Name"));
    return names;
}

std::vector<XmlElement> ProductDescriptions(XmlElement component, std::string_view option)
{
    std::vector<XmlElement> descriptions;
    for (auto group = component.Child("Option").FirstChild(); group; group = group.NextSibling()) {
        if (option != kAllOptions && option != group.Tag())
            continue;
        const auto found = group.Children("ProductDescription");
        descriptions.insert(descriptions.end(), found.begin(), found.end());
    }
    return descriptions;
}

std::vector<std::string> DeviceNames(XmlElement root, std::string_view option)
{
    std::vector<std::string> names;
    for (const XmlElement component : FunctionalComponents(root))
        for (const XmlElement description : ProductDescriptions(component, option))
            if (const auto name = description.ChildContent("Name"); !name.empty())
                names.emplace_back(name);
    return names;
}

DeviceElements FindDevice(XmlElement root, std::string_view deviceName)
{
    if (deviceName.empty())
        return {};
    for (const XmlElement component : FunctionalComponents(root))
        for (const XmlElement description : ProductDescriptions(component, kAllOptions))
            if (description.ChildContent("Name") == deviceName)
                return {component, description};
    return {};
}

XmlElement FindProduct(XmlElement root, std::string_view product)
{
    for (const XmlElement component : FunctionalComponents(root))
        for (auto child = component.Child("Option").Child("Product"); child; child = child.NextSame())
            if (child.HasAttribute("name") && child.Attribute("name") == product)
                return child;
    return {};
}

}
