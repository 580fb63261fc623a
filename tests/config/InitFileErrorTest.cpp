#include "config/ControllerFixture.h"

namespace tarvex {
namespace {

constexpr std::int32_t kSyntax = ObjectError(9);
constexpr const char* kDevice = "TarvexController::InitDevice";
constexpr const char* kRegisters = "TarvexController::ReadI2CRegisters";
constexpr const char* kProperties = "TarvexController::ReadI2CProperties";

struct BadFile {
    const char* what;
    std::string InitFileBuilder::*place;
    std::string text;
    std::int32_t number = kSyntax;
    const char* source = kRegisters;
    std::string description = "Invalid syntax in initialization file /tmp/Tarvex.xml";
};

std::string Identity(const std::string& pid, const std::string& board, const std::string& interface)
{
    return Xml("PID", pid) + Xml("BoardID", board) + Xml("ConfigInterface", interface);
}

std::string Registers(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += RegisterXml(std::to_string(i), "20");
    return text;
}

const std::string kGood = RegisterXml("R", "20");

using File = InitFileBuilder;

const BadFile kBadFiles[] = {
    {"NoPid", &File::identity, Xml("BoardID", "1") + Xml("ConfigInterface", "I2C"), kSyntax, kDevice},
    {"PidNoHex", &File::identity, Identity("0x51", "1", "I2C"), kSyntax, kDevice},
    {"OtherInterface", &File::identity, Identity("51", "1", "SPI"), kSyntax, kDevice},
    {"WordSizeFour", &File::wordSize, "4", kSyntax, kDevice},
    {"BaseAddressNoHex", &File::baseAddress, "04 1", kSyntax, kDevice},
    {"StrangerInList", &File::registers, kGood + Xml("Property", "")},
    {"AddressNoHex", &File::registers, RegisterXml("R", "2Z")},
    {"NameMissing", &File::registers, Xml("Register", Xml("Address", "20"))},
    {"NameTwice", &File::registers, kGood + RegisterXml("R", "21")},
    {"NameTwiceInTwoLists", &File::moreLists,
     Xml("RegisterList baseAddress=\"0452\" description=\"\"", RegisterXml("Gain", "20"))},
    {"DefaultNoHex", &File::registers, RegisterXml("R", "20", Xml("Default", "80h"))},
    {"DefaultTooLarge", &File::registers, RegisterXml("R", "20", Xml("Default", "100"))},
    {"BitsTooMany", &File::registers, RegisterXml("R", "20", BitsXml("ReadWrite", "0:7") + BitsXml("ReadOnly", "0"))},
    {"BitOutside", &File::registers, RegisterXml("R", "20", BitsXml("ReadWrite", "8"))},
    {"BitsWithBlank", &File::registers, RegisterXml("R", "20", BitsXml("ReadWrite", " 0:7")), ObjectError(100),
     "Function ParseBitString", "Invalid character 32 in parse string"},
    {"DependencyUnknown", &File::registers, RegisterXml("R", "20", Xml("Dependency", "r"))},
    {"FieldOfUnknownRegister", &File::properties, PropertyXml("P", FieldXml("F", "gain")), kSyntax, kProperties},
    {"BitIndexTooWide", &File::properties, PropertyXml("P", FieldXml("F", "Gain", "0:7", "0:8")), kSyntax, kProperties,
     "Invalid XML syntax.  Bitsets definitions must break on word size boundaries. Word size is 1. Invalid xml value "
     "is 0:8"},
    {"BitIndexNoBitString", &File::properties, PropertyXml("P", FieldXml("F", "Gain", "0:7", "0-7")), ObjectError(100),
     "Function ParseBitString", "Invalid character 45 in parse string"},
    {"UnknownUI", &File::properties, PropertyXml("P", Xml("UI", "range") + FieldXml("F", "Gain")), 502,
     "TarvexProperty::WidgetType", "Invalide string of range to set WidgetType"},
    {"NoRegisters", &File::registers, "", kSyntax, kProperties,
     "Invalid XML syntax, there are no registers defined in a file that defines properties. Filename: "
     "/tmp/Tarvex.xml"},
    {"MoreRegistersThanCountsHold", &File::registers, Registers(32768), kErrOverflow, kRegisters, "Overflow"},
};

TEST_F(ControllerTest, MeetsBadFilesWithAnErrorAndLeavesTheRunningMap)
{
    for (const BadFile& bad : kBadFiles) {
        SCOPED_TRACE(bad.what);
        UseBoard();
        InitFileBuilder file;
        file.device = "Other";
        file.properties = PropertyXml("P", FieldXml("F", "Gain"));
        file.*bad.place = bad.text;
        Use(file.Text());
        const auto raised = controller.CurrentProductChanged.Subscribe([](auto, auto, const auto&) { FAIL(); });
        ExpectError([&] { controller.InitDevice("Other"); }, bad.number, bad.source, bad.description);
        ExpectBoardUntouched();
    }
}

}
}
