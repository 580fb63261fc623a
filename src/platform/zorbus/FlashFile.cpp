#include "platform/zorbus/FlashFile.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "platform/IFileSystem.h"
#include "platform/xml/XmlFiles.h"

#include <algorithm>

namespace tarvex {

namespace {

SimulatedNode* FindNode(SimulatedNetwork& network, XmlElement element)
{
    for (SimulatedPort& port : network.ports)
        for (SimulatedNode& node : port.nodes)
            if (TryParseDecimal(element.Attribute("port")) == port.number &&
                TryParseHex(element.Attribute("id")) == node.record.nodeId)
                return &node;
    return nullptr;
}

std::int16_t Word(std::optional<std::int32_t> value)
{
    return value && *value >= 0 && *value <= 32767 ? static_cast<std::int16_t>(*value) : std::int16_t{-1};
}

void LoadValue(XmlElement element, SimulatedNode& node)
{
    const auto found = node.parameters.find({Word(TryParseDecimal(element.Attribute("aspi"))),
                                             Word(TryParseHex(element.Attribute("base"))),
                                             Word(TryParseHex(element.Attribute("id")))});
    const auto value = TryParseHex(element.Attribute("value"));
    if (found != node.parameters.end() && value)
        found->second.flash = *value;
}

void AddNode(XmlElement root, std::int16_t port, const SimulatedNode& node)
{
    XmlElement element = root.AddChild("Node");
    element.SetAttribute("port", std::to_string(port));
    element.SetAttribute("id", ToHex(node.record.nodeId));
    for (const auto& [place, parameter] : node.parameters) {
        XmlElement value = element.AddChild("Value");
        value.SetAttribute("aspi", std::to_string(place.aspi));
        value.SetAttribute("base", ToHex(place.baseAddress));
        value.SetAttribute("id", ToHex(place.parameterId));
        value.SetAttribute("value", ToHex(parameter.flash));
    }
}

}

void FlashFile::Load(SimulatedNetwork& network) const
{
    if (path_.empty() || !files_->FileExists(path_))
        return;
    XmlDocument document;
    if (!LoadXmlFile(*files_, path_, document))
        Raise(ObjectError(1), "FlashFile::Load", path_ + ": " + document.LastErrorText());
    for (const XmlElement& element : document.Root().Children("Node"))
        if (SimulatedNode* node = FindNode(network, element))
            for (const XmlElement& value : element.Children("Value"))
                LoadValue(value, *node);
}

void FlashFile::Save(const SimulatedNetwork& network) const
{
    if (path_.empty())
        return;
    XmlDocument document;
    const XmlElement root = document.CreateRoot("ZorbusFlash");
    for (const SimulatedPort& port : network.ports)
        for (const SimulatedNode& node : port.nodes)
            AddNode(root, port.number, node);
    if (const auto end = path_.rfind('/'); end != std::string::npos && end > 0)
        files_->CreateFolder(path_.substr(0, end));
    SaveXmlFile(*files_, path_, document);
}

}
