#include "config/PropertyReader.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "model/BitConversions.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvex {

namespace {

void CheckBitIndex(std::string_view text, std::int16_t wordSize)
{
    Bits bits;
    if (ParseBitString(text, bits) <= 8 * wordSize)
        return;
    Raise(kErrFileSyntax, kReadPropertiesSource,
          "Invalid XML syntax.  Bitsets definitions must break on word size boundaries. Word size is " +
              std::to_string(wordSize) + ". Invalid xml value is " + std::string(text));
}

void ReadTexts(XmlElement element, TarvexProperty& property)
{
    if (const auto child = element.Child("UI"))
        property.WidgetType(std::string(child.Content()));
    property.helpTip(std::string(element.ChildContent("HelpTip")));
    property.ImageFilepath(std::string(element.ChildContent("ImageFile")));
    property.Description(std::string(element.ChildContent("Description")));
    for (auto prompt = element.Child("Prompt"); prompt; prompt = prompt.NextSame())
        property.AddPrompt(std::string(prompt.Content()));
}

std::shared_ptr<TarvexProperty> ReadProperty(XmlElement element, const MapFile& file, std::int16_t wordSize,
                                             const RegisterMap& map)
{
    auto property = std::make_shared<TarvexProperty>();
    ReadTexts(element, *property);
    std::vector<std::string> names;
    std::vector<std::shared_ptr<RegisterObject>> registers;
    std::vector<std::string> bitStrings;
    for (auto field = element.Child("BitsDescriptor"); field; field = field.NextSame()) {
        auto target = map.FindRegister(field.ChildContent("RegisterName"));
        if (!target)
            RaiseInitFileError(file, kReadPropertiesSource);
        CheckBitIndex(field.ChildContent("BitIndex"), wordSize);
        names.emplace_back(field.ChildContent("Name"));
        registers.push_back(std::move(target));
        bitStrings.emplace_back(field.ChildContent("ParentBit"));
    }
    property->Init(std::string(element.Attribute("name")), names, registers, bitStrings);
    return property;
}

}

void ReadProperties(XmlElement propertyList, const MapFile& file, std::int16_t wordSize, RegisterMap& map)
{
    if (propertyList.Child("Property") && map.registers.empty())
        Raise(kErrFileSyntax, kReadPropertiesSource,
              "Invalid XML syntax, there are no registers defined in a file that defines properties. Filename: " +
                  file.path);
    for (auto child = propertyList.FirstChild(); child; child = child.NextSibling()) {
        if (child.Tag() != "Property")
            RaiseInitFileError(file, kReadPropertiesSource);
        map.AddProperty(ReadProperty(child, file, wordSize, map));
        ToInt16(static_cast<std::int64_t>(map.properties.size()), kReadPropertiesSource);
    }
}

}
