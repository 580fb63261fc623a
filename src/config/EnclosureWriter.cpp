#include "config/EnclosureWriter.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/CalculateASPI.h"
#include "comm/Enclosure.h"
#include "comm/api/IDevice.h"
#include "config/EnclosureElements.h"
#include "config/IConfigController.h"
#include "config/IProgress.h"
#include "config/InitFileQueries.h"
#include "model/BitConversions.h"
#include "model/RegisterObject.h"

#include <algorithm>
#include <unordered_map>

namespace tarvex {

namespace {

constexpr const char* kOperation = "TarvexData::WriteEnclosureData";

bool Serves(IProduct& product, ChannelDirection side)
{
    const auto direction = static_cast<ChannelDirection>(product.Direction());
    return direction == side || direction == ChannelDirection::Both;
}

XmlElement WriteIdentity(XmlElement root, const Enclosure& enclosure)
{
    XmlElement element = FindEnclosure(root, enclosure.ZorbusAddress());
    if (!element)
        element = root.AddChild(kEnclosureTag);
    element.SetAttribute("name", enclosure.Name());
    element.SetAttribute("zorbusID", ToHex(enclosure.ZorbusAddress()));
    element.SetAttribute("type", enclosure.DeviceType());
    element.SetAttribute("description", enclosure.Description());
    element.SetAttribute("version", enclosure.Version());
    element.SetAttribute("ProductQualifier", enclosure.ProductQualifier());
    return element;
}

void WriteSlots(XmlElement enclosureElement, const Enclosure& enclosure)
{
    XmlElement population = enclosureElement.Child("SlotPopulation");
    if (!population)
        population = enclosureElement.AddChild("SlotPopulation");
    std::vector<std::int32_t> boardIds;
    enclosure.GetSlotPops(boardIds);
    for (std::size_t slot = 0; slot < boardIds.size(); ++slot)
        FindOrAddChild(population, "Slot", "number", ToHex(static_cast<std::int32_t>(slot)))
            .SetContent(ToHex(boardIds[slot]));
}

}

EnclosureWriter::EnclosureWriter(XmlElement root, IConfigController& controller, IDevice& device, IProgress* progress)
    : root_(root), description_(FindDevice(root, controller.deviceName()).description), device_(device),
      progress_(progress)
{
    if (!description_)
        RaiseRuntime(kErrInvalidCall, kOperation);
    const std::int16_t count = controller.GetI2CRegisterCount();
    for (std::int16_t i = 0; i < count; ++i)
        registers_.push_back(controller.GetI2CRegister(i));
}

void EnclosureWriter::Write(const Enclosure& enclosure)
{
    const XmlElement element = WriteIdentity(root_, enclosure);
    for (const Enclosure::SlotProduct& each : enclosure.GetProducts())
        WriteProduct(element, enclosure, *each.product);
    WriteSlots(element, enclosure);
    if (progress_)
        progress_->Show(true);
}

void EnclosureWriter::WriteProduct(XmlElement enclosureElement, const Enclosure& enclosure, IProduct& product)
{
    XmlElement element = FindOrAddChild(enclosureElement, "Product", "name", product.Name());
    element.SetAttribute("functionalComponent", product.FunctionalComponent());
    element.SetAttribute("connectorsPerSlot", std::to_string(product.ConnectorsPerSlot()));
    element.SetAttribute("boardID", ToHex(product.BoardID()));
    if (!BelongsToDevice(product)) // its boards have other registers, which this file does not describe
        return;
    for (const ChannelDirection side : {ChannelDirection::Source, ChannelDirection::Destination})
        if (Serves(product, side))
            WriteSide(element, side, enclosure, product);
}

void EnclosureWriter::WriteSide(XmlElement productElement, ChannelDirection side, const Enclosure& enclosure,
                                IProduct& product)
{
    auto channels = product.channels();
    channels.resize(static_cast<std::size_t>(product.Count()));
    if (progress_)
        progress_->SetRange(product.Count(), 0);
    for (const std::int16_t channel : channels) {
        WriteChannel(FindOrAddChild(productElement, SideTag(side), "number", std::to_string(channel)), channel,
                     enclosure);
        if (progress_)
            progress_->TickProgress(1);
    }
}

void EnclosureWriter::WriteChannel(XmlElement channelElement, std::int16_t channel, const Enclosure& enclosure)
{
    std::unordered_map<std::string_view, XmlElement> stored;
    for (XmlElement each = channelElement.Child(kRegisterValueTag); each; each = each.NextSame())
        stored.emplace(each.Attribute("name"), each);
    for (const auto& each : registers_) {
        const std::int16_t aspi = CalculateASPI(channel, each.get(), enclosure.EnclosureType());
        if (aspi == kNoAspi) // no processor of this connector has the register
            continue;
        const std::string value = ToHex(ReadRegister(*each, aspi));
        const auto found = stored.find(each->Name());
        XmlElement element = found != stored.end() ? found->second : channelElement.AddChild(kRegisterValueTag);
        element.SetAttribute("name", each->Name());
        element.SetContent(value);
    }
}

std::int32_t EnclosureWriter::ReadRegister(const RegisterObject& target, std::int16_t aspi)
{
    const auto wanted = static_cast<std::int16_t>((target.MaxBits() + 7) / 8);
    std::int16_t delivered = wanted;
    const Bytes bytes = device_.ReadFrom(target.BaseAddress(), target.Address(), delivered, aspi);
    if (delivered < wanted || bytes.size() < static_cast<std::size_t>(wanted))
        Raise(ObjectError(1), kOperation, "Failed to read " + target.Name());
    return BytesToLong(bytes, wanted) & target.MaxValue();
}

bool EnclosureWriter::BelongsToDevice(IProduct& product) const
{
    const auto ids = description_.Children("BoardID");
    return std::any_of(ids.begin(), ids.end(),
                       [&product](XmlElement id) { return TryParseHex(id.Content()) == product.BoardID(); });
}

}
