#include "comm/FunctionalComponent.h"

namespace tarvex {

std::vector<std::string> FunctionalComponent::ParseProducts(XmlElement element)
{
    std::vector<std::string> names;
    if (element.Tag() == "Option")
        for (const XmlElement& product : element.Children("Product"))
            names.emplace_back(product.Attribute("name"));
    return names;
}

std::vector<std::string> FunctionalComponent::GetProductCommLinks(XmlElement element)
{
    std::vector<std::string> links;
    if (element.Tag() == "Product")
        for (const XmlElement& link : element.Children("CommLink"))
            links.emplace_back(link.ChildContent("Name"));
    return links;
}

}
