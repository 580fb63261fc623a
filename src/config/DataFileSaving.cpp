#include "config/DataFileSaving.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "config/InitFileQueries.h"
#include "config/MapFile.h"
#include "model/RegisterObject.h"
#include "platform/xml/XmlFiles.h"

#include <string_view>
#include <unordered_map>

namespace tarvex {

namespace {

constexpr const char* kNamespace = "urn:tarvex:signal-configuration";
constexpr int kBaseAddressDigits = 4;

using RegistersByName = std::unordered_map<std::string_view, XmlElement>;
using ListsByAddress = std::unordered_map<std::string_view, RegistersByName>;

XmlElement CreateDataFile(XmlDocument& document, const DataFileServices& services, const TarvexData& initFile)
{
    XmlElement root = document.CreateRoot(kDataFileRoot);
    root.SetAttribute("xmlns", kNamespace);
    root.SetAttribute("lastModified", services.clock.NowText());
    root.SetAttribute("version", services.state.g_minInitVersion);
    root.AddChild("VID", std::to_string(initFile.VendorID()));
    return root;
}

XmlElement AddProduct(XmlElement root, const TarvexData& initFile, const std::string& deviceName)
{
    const auto tree = initFile.Tree();
    const DeviceElements device = FindDevice(tree->Root(), deviceName);
    if (!device.component)
        RaiseRuntime(kErrInvalidCall, "TarvexData::AddProduct");
    return root.AddCopy(device.component);
}

/// Finding each register by a search of its list would take minutes for a large board.
ListsByAddress IndexRegisters(XmlElement component)
{
    ListsByAddress lists;
    for (const XmlElement list : component.Child("Attributes").Child("I2CAttributes").Children("RegisterList"))
        for (const XmlElement each : list.Children("Register"))
            lists[list.Attribute("baseAddress")].emplace(each.ChildContent("RegisterName"), each);
    return lists;
}

void WriteValue(const ListsByAddress& lists, const RegisterObject& object)
{
    const std::string address = ToHex(object.BaseAddress(), kBaseAddressDigits);
    const auto list = lists.find(address);
    if (list == lists.end())
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

void SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path)
{
    const auto tree = initFile.Tree(); // one for all that is looked up below
    XmlDocument document;
    const XmlElement root = CreateDataFile(document, services, initFile);
    const ListsByAddress lists = IndexRegisters(AddProduct(root, initFile, controller.deviceName()));
    const std::int16_t count = controller.GetI2CRegisterCount();
    for (std::int16_t i = 0; i < count; ++i)
        WriteValue(lists, *controller.GetI2CRegister(i));
    SaveXmlFile(services.files, path, document);
}

}
