#include "config/ControllerFixture.h"

namespace tarvex {
namespace {

constexpr std::int32_t kInvalid = ObjectError(6);
constexpr std::int32_t kSyntax = ObjectError(9);
constexpr const char* kOpenSource = "TarvexController::InitDeviceFromFile";

struct BadDataFile {
    std::string InitFileBuilder::*place;
    std::string text;
    std::int32_t number;
    const char* source;
    std::string description;
};

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
    EXPECT_TRUE(controller.GetI2CRegister(0)->IsDirty());
    EXPECT_TRUE(controller.GetI2CRegister(1)->IsDirty());
}

TEST_F(DataFileTest, IsRefusedWithAnEntryInTheLog)
{
    const BadDataFile kCases[] = {
        {&InitFileBuilder::root, "SignalTarvex", kInvalid, kOpenSource,
         "File /home/user/mine.xml is not a data file.  Must have root tag of TarvexData"},
        {&InitFileBuilder::version, "2.3.9", kInvalid, kOpenSource, "File version does not meet minimum of 2.4.0"},
        {&InitFileBuilder::component, "family", ObjectError(0xD), kOpenSource,
         "Cannot locate product family in init file /tmp/Tarvex.xml"},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Default", "80")), kSyntax,
         "TarvexController::ReadI2CREgisters", "Invalid XML Syntax for Data file.  No Value found for register"},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Value", "")), kSyntax,
         "TarvexController::ReadI2CRegisters", "Invalid syntax in initialization file /tmp/Tarvex.xml"},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Value", "100")), 10, "RegisterObject::LetValue",
         "Value 256 out of range for register with 8 bits"},
    };
    UseBoard();
    for (const BadDataFile& bad : kCases) {
        InitFileBuilder file = DataFile();
        file.*bad.place = bad.text;
        EXPECT_FALSE(Open(file.Text()));
        EXPECT_EQ(log.entries.back().number, bad.number);
        EXPECT_EQ(log.entries.back().source, bad.source);
        EXPECT_EQ(log.entries.back().description, bad.description);
        ExpectBoardUntouched();
    }
    EXPECT_FALSE(Open("noise"));
    EXPECT_EQ(log.entries.back().description, "Unable to load data file /home/user/mine.xml");
    EXPECT_FALSE(Open(DataFile().Text(InitFileBuilder().Component())));
    EXPECT_EQ(log.entries.back().description,
              "Invalid file /home/user/mine.xml has more than on FunctionalComponent tag.");
}

}
}
