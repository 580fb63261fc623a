#include "config/RegisterElements.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "config/InitFileQueries.h"
#include "model/RegisterObject.h"

namespace tarvex {

namespace {

constexpr int kBaseAddressDigits = 4;

}

RegisterElements::RegisterElements(XmlElement root)
{
    for (const XmlElement component : FunctionalComponents(root))
        Add(component);
}

void RegisterElements::Add(XmlElement component)
{
    XmlElement list = component.Child("Attributes").Child("I2CAttributes").Child("RegisterList");
    for (; list; list = list.NextSame()) {
        ByName& registers = lists_[list.Attribute("baseAddress")];
        registers.reserve(registers.size() + list.ChildCount());
        for (XmlElement each = list.Child("Register"); each; each = each.NextSame())
            registers.emplace(each.ChildContent("RegisterName"), each);
    }
}

void RegisterElements::StoreValue(const RegisterObject& object) const
{
    const std::string address = ToHex(object.BaseAddress(), kBaseAddressDigits);
    const auto list = lists_.find(address);
    if (list == lists_.end())
        Raise(101, "TarvexData::WriteSimpleData",
              "Invalid XML data file.  Unable to find RegisterList with baseAddress = " + address);
    const auto found = list->second.find(object.Name());
    if (found == list->second.end())
        return;
    XmlElement element = found->second;
    if (XmlElement value = element.Child("Value"))
        value.SetContent(ToHex(object.value()));
    else
        element.AddChild("Value", ToHex(object.value()));
}

}
