#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Enclosure.h"
#include "config/EnclosureElements.h"
#include "config/TarvexData.h"

namespace tarvex {

std::vector<std::shared_ptr<Enclosure>> TarvexData::GetAllEnclosures(IErrorLog& errorLog) const
{
    static constexpr const char* kSource = "TarvexData::GetAllEnclosures";
    const auto tree = Tree();
    std::vector<std::shared_ptr<Enclosure>> enclosures;
    for (XmlElement each = tree->Root().Child(kEnclosureTag); each; each = each.NextSame()) {
        NodeRecord record;
        record.nodeId = ParseHex(each.Attribute("zorbusID"), kSource);
        record.enclosureType = ParseDecimal(each.Attribute("type"), kSource);
        record.qualifier = ToByte(ParseDecimal(each.Attribute("ProductQualifier"), kSource), kSource);
        record.description = each.Attribute("description");
        record.name = each.Attribute("name");
        record.firmwareVersion = each.Attribute("version");
        enclosures.push_back(std::make_shared<Enclosure>(errorLog));
        enclosures.back()->SetNodeBasics(record);
    }
    return enclosures;
}

std::vector<std::int32_t> TarvexData::GetSlotPops(std::int32_t address) const
{
    static constexpr const char* kSource = "TarvexData::GetSlotPops";
    const auto tree = Tree();
    const XmlElement enclosure = FindEnclosure(tree->Root(), address);
    if (!enclosure)
        Raise(1002, kSource, "Cannot find enclosure 0x" + ToHex(address) + " in " + path_);
    std::vector<std::int32_t> boardIds;
    for (XmlElement slot = enclosure.Child("SlotPopulation").Child("Slot"); slot; slot = slot.NextSame())
        boardIds.push_back(ParseHex(slot.Content(), kSource));
    return boardIds;
}

bool TarvexData::ReadChannelRegisterValue(const Enclosure& enclosure, const std::string& product, std::int16_t channel,
                                          ChannelDirection direction, const std::string& registerName,
                                          std::int32_t& value) const
{
    const auto tree = Tree();
    const XmlElement productElement =
        FindChild(FindEnclosure(tree->Root(), enclosure.ZorbusAddress()), "Product", "name", product);
    const XmlElement side = FindChild(productElement, SideTag(direction), "number", std::to_string(channel));
    const auto stored = TryParseHex(FindChild(side, kRegisterValueTag, "name", registerName).Content());
    value = stored.value_or(value);
    return stored.has_value();
}

}
