#include "config/RegisterMapReader.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/PropertyReader.h"
#include "model/BitConversions.h"
#include "model/RegisterObject.h"
#include "model/TarvexGroup.h"
#include "model/TarvexProperty.h"

#include <string_view>

namespace tarvex {

namespace {

std::int16_t FlagsOf(std::string_view access)
{
    AccessFlag flag = AccessFlag::None;
    if (access == "ReadWrite")
        flag = AccessFlag::ReadWrite;
    else if (access == "ReadOnly")
        flag = AccessFlag::ReadOnly;
    else if (access == "WriteOnly")
        flag = AccessFlag::WriteOnly;
    else if (access == "Reserved")
        flag = AccessFlag::Reserved;
    return static_cast<std::int16_t>(flag);
}

void KeepFirst(XmlElement& place, XmlElement found)
{
    if (!place)
        place = found;
}

}

RegisterMapReader::Parts::Parts(XmlElement element)
{
    for (auto child = element.FirstChild(); child; child = child.NextSibling()) {
        const auto tag = child.Tag();
        if (tag == "Bits")
            bits.push_back(child);
        else if (tag == "Dependency")
            dependencies.push_back(child);
        else if (tag == "Address")
            KeepFirst(address, child);
        else if (tag == "RegisterName")
            KeepFirst(name, child);
        else if (tag == "Description")
            KeepFirst(description, child);
        else if (tag == "Default")
            KeepFirst(defaultValue, child);
        else if (tag == "Value")
            KeepFirst(value, child);
    }
}

DeviceMap RegisterMapReader::Read(XmlElement component, XmlElement description)
{
    ReadIdentity(component, description);
    const XmlElement attributes = component.Child("Attributes").Child("I2CAttributes");
    ReadWordSize(attributes);
    for (auto list = attributes.Child("RegisterList"); list; list = list.NextSame())
        ReadRegisterList(list);
    LinkDependencies();
    ReadProperties(attributes.Child("PropertyList"), file_, wordSize_, device_.map);
    return std::move(device_);
}

void RegisterMapReader::ReadIdentity(XmlElement component, XmlElement description)
{
    device_.deviceName = description.ChildContent("Name");
    device_.componentName = component.ChildContent("Name");
    device_.productId = HexOf(description.ChildContent("PID"), file_, kInitDeviceSource);
    device_.boardId = HexOf(description.ChildContent("BoardID"), file_, kInitDeviceSource);
    if (!EqualsIgnoringCase(description.ChildContent("ConfigInterface"), "I2C"))
        RaiseInitFileError(file_, kInitDeviceSource);
}

void RegisterMapReader::ReadWordSize(XmlElement attributes)
{
    const auto size = TryParseDecimal(attributes.ChildContent("RegisterWordSize"));
    if (!size || *size < 1 || *size > 3) // a value of 32 bits has no representable maximum
        RaiseInitFileError(file_, kInitDeviceSource);
    wordSize_ = static_cast<std::int16_t>(*size);
}

void RegisterMapReader::ReadRegisterList(XmlElement list)
{
    const auto baseText = list.Attribute("baseAddress");
    const std::int32_t baseAddress = HexOf(baseText, file_, kInitDeviceSource);
    auto group = std::make_shared<TarvexGroup>();
    group->Name(std::string(list.Attribute("description")));
    group->ID("0x" + std::string(baseText));
    device_.map.Reserve(list.ChildCount());
    for (auto child = list.FirstChild(); child; child = child.NextSibling()) {
        if (child.Tag() != "Register")
            RaiseInitFileError(file_, kReadRegistersSource);
        const auto added = ReadRegister(child, baseAddress, group->RegCount());
        if (!device_.map.AddRegister(added))
            RaiseInitFileError(file_, kReadRegistersSource);
        ToInt16(static_cast<std::int64_t>(device_.map.registers.size()), kReadRegistersSource);
        group->AddRegister(added->Name());
    }
    device_.map.groups.push_back(std::move(group));
}

std::shared_ptr<RegisterObject> RegisterMapReader::ReadRegister(XmlElement element, std::int32_t baseAddress,
                                                                std::int16_t index)
{
    const Parts parts(element);
    std::string name(parts.name.Content());
    if (name.empty()) // the empty name stands for all registers in a transfer
        RaiseInitFileError(file_, kReadRegistersSource);
    const std::int32_t address = HexOf(parts.address.Content(), file_, kReadRegistersSource);
    auto made = std::make_shared<RegisterObject>();
    made->Init(baseAddress, address, index, static_cast<std::int16_t>(8 * wordSize_), std::move(name),
               std::string(parts.description.Content()));
    ReadBits(parts, *made);
    if (file_.isDataFile)
        ReadValue(parts, *made);
    else
        ReadDefault(parts, *made);
    for (const XmlElement dependency : parts.dependencies)
        dependencies_.emplace_back(made, dependency.Content());
    return made;
}

void RegisterMapReader::ReadBits(const Parts& parts, RegisterObject& target) const
{
    std::int32_t counted = 0;
    Bits positions;
    BitTexts descriptions{};
    for (const XmlElement bits : parts.bits) {
        counted += ParseBitString(bits.Content(), positions);
        if (counted > target.MaxBits())
            RaiseInitFileError(file_, kReadRegistersSource);
        MarkBits(bits, positions, target, descriptions);
    }
    target.DescribeBits(descriptions);
}

void RegisterMapReader::MarkBits(XmlElement bits, const Bits& positions, RegisterObject& target,
                                 BitTexts& descriptions) const
{
    const std::int16_t flags = FlagsOf(bits.Attribute("access"));
    const auto description = bits.Attribute("description");
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (!positions[i])
            continue;
        if (i >= static_cast<std::size_t>(target.MaxBits()))
            RaiseInitFileError(file_, kReadRegistersSource);
        const auto bit = static_cast<std::int16_t>(i);
        target.SetBitFlags(bit, flags);
        if (!description.empty())
            descriptions[i] = description;
    }
}

void RegisterMapReader::ReadValue(const Parts& parts, RegisterObject& target) const
{
    if (!parts.value)
        Raise(kErrFileSyntax, "TarvexController::ReadI2CREgisters",
              "Invalid XML Syntax for Data file.  No Value found for register");
    target.value(HexOf(parts.value.Content(), file_, kReadRegistersSource));
}

void RegisterMapReader::ReadDefault(const Parts& parts, RegisterObject& target) const
{
    const auto text = parts.defaultValue.Content();
    const std::int32_t value = HexOf(text.empty() ? "00" : text, file_, kReadRegistersSource);
    if (value < target.MinValue() || value > target.MaxValue())
        RaiseInitFileError(file_, kReadRegistersSource);
    for (std::int16_t bit = 0; bit < target.MaxBits(); ++bit)
        target.SetBit(bit, ((value >> bit) & 1) != 0);
}

void RegisterMapReader::LinkDependencies()
{
    for (const auto& [dependent, name] : dependencies_) {
        auto other = device_.map.FindRegister(name);
        if (!other)
            RaiseInitFileError(file_, kReadRegistersSource);
        dependent->AddDependency(std::move(other));
    }
}

}
