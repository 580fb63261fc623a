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
    {"WordSizeFour", &File::wordSize, "4", kSyntax, kDevice},
    {"AddressNoHex", &File::registers, RegisterXml("R", "2Z")},
    {"NameTwice", &File::registers, kGood + RegisterXml("R", "21")},
    {"NameTwiceInTwoLists", &File::moreLists,
     Xml("RegisterList baseAddress=\"0452\" description=\"\"", RegisterXml("Gain", "20"))},
    {"DefaultNoHex", &File::registers, RegisterXml("R", "20", Xml("Default", "80h"))},
    {"DefaultTooLarge", &File::registers, RegisterXml("R", "20", Xml("Default", "100"))},
    {"BitsTooMany", &File::registers, RegisterXml("R", "20", BitsXml("ReadWrite", "0:7") + BitsXml("ReadOnly", "0"))},
    {"BitOutside", &File::registers, RegisterXml("R", "20", BitsXml("ReadWrite", "8"))},
    {"DependencyUnknown", &File::registers, RegisterXml("R", "20", Xml("Dependency", "r"))},
    {"FieldOfUnknownRegister", &File::properties, PropertyXml("P", FieldXml("F", "gain")), kSyntax, kProperties},
    {"BitIndexTooWide", &File::properties, PropertyXml("P", FieldXml("F", "Gain", "0:7", "0:8")), kSyntax, kProperties,
     "Invalid XML syntax.  Bitsets definitions must break on word size boundaries. Word size is 1. Invalid xml value "
     "is 0:8"},
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

constexpr std::int32_t kInvalid = ObjectError(6);
constexpr const char* kOpenSource = "TarvexController::InitDeviceFromFile";

InitFileBuilder DataFile()
{
    InitFileBuilder file;
    file.root = "TarvexData";
    file.version = "2.4.0";
    file.vid = "4805";
    file.registers = RegisterXml("Gain", "20", Xml("Default", "80") + Xml("Value", "A")) +
                     RegisterXml("Offset", "21", Xml("Value", "0"));
    return file;
}

class DataFileTest : public ControllerTest {
protected:
    bool Open(const std::string& text)
    {
        files.files[kDataPath] = text;
        return controller.InitDeviceFromFile(kDataPath);
    }
};

TEST_F(DataFileTest, BringsItsValuesMarkedChanged)
{
    UseBoard();
    std::vector<std::string> raised;
    const auto opened = controller.DataFileOpened.Subscribe([&](const std::string& name, const std::string& path) {
        raised = {name, path};
    });
    ASSERT_TRUE(Open(DataFile().Text()));
    EXPECT_EQ(raised, (std::vector<std::string>{"Board", kDataPath}));
    EXPECT_EQ(controller.GetI2CRegister(0)->value(), 0xA);
    EXPECT_TRUE(controller.GetI2CRegister(0)->IsDirty() && controller.GetI2CRegister(1)->IsDirty());
}

TEST_F(DataFileTest, IsRefusedWithAnEntryInTheLog)
{
    const BadFile kCases[] = {
        {"Root", &File::root, "SignalTarvex", kInvalid, kOpenSource,
         "File /home/user/mine.xml is not a data file.  Must have root tag of TarvexData"},
        {"Old", &File::version, "2.3.9", kInvalid, kOpenSource, "File version does not meet minimum of 2.4.0"},
        {"Component", &File::component, "family", ObjectError(0xD), kOpenSource,
         "Cannot locate product family in init file /tmp/Tarvex.xml"},
        {"NoValue", &File::registers, RegisterXml("Gain", "20", Xml("Default", "80")), kSyntax,
         "TarvexController::ReadI2CREgisters", "Invalid XML Syntax for Data file.  No Value found for register"},
        {"ValueEmpty", &File::registers, RegisterXml("Gain", "20", Xml("Value", ""))},
        {"ValueTooLarge", &File::registers, RegisterXml("Gain", "20", Xml("Value", "100")), 10,
         "RegisterObject::LetValue", "Value 256 out of range for register with 8 bits"},
    };
    UseBoard();
    for (const BadFile& bad : kCases) {
        SCOPED_TRACE(bad.what);
        InitFileBuilder file = DataFile();
        file.*bad.place = bad.text;
        EXPECT_FALSE(Open(file.Text()));
        EXPECT_EQ(log.entries.back(), (FakeErrorLog::Entry{bad.description, bad.number, bad.source}));
        ExpectBoardUntouched();
    }
    EXPECT_FALSE(Open("noise"));
    EXPECT_EQ(log.entries.back().description, "Unable to load data file /home/user/mine.xml");
    EXPECT_TRUE(log.entries[log.entries.size() - 2].description.starts_with("/home/user/mine.xml: "));
    EXPECT_FALSE(Open(DataFile().Text(InitFileBuilder().Component())));
    EXPECT_EQ(log.entries.back().description,
              "Invalid file /home/user/mine.xml has more than on FunctionalComponent tag.");
}

}
}
