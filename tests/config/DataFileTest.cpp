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

    void ExpectRefused(const std::string& text, std::int32_t number, const char* source, const std::string& description)
    {
        log.entries.clear();
        EXPECT_FALSE(Open(text));
        ASSERT_EQ(log.entries.size(), 1U) << description;
        EXPECT_EQ(log.entries[0].number, number);
        EXPECT_EQ(log.entries[0].source, source);
        EXPECT_EQ(log.entries[0].description, description);
        ExpectBoardUntouched();
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

TEST_F(DataFileTest, MakesItsProductTheCurrentOne)
{
    InitFileBuilder other;
    other.component = "Others";
    Use(InitFileBuilder().Text(other.Component()));
    controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    ASSERT_TRUE(controller.InitDevice("Board"));
    InitFileBuilder file = DataFile();
    file.component = "Others";
    file.device = "First";
    file.identity = Xml("PID", "7") + Xml("BoardID", "8") + Xml("ConfigInterface", "I2C");
    std::string text = file.Text();
    ASSERT_TRUE(Open(text));
    EXPECT_EQ(controller.deviceName(), "First");
    EXPECT_EQ(controller.pid(), 7);
    EXPECT_EQ(controller.BoardID(), 8);
    text.insert(text.find("<ProductDescription>"), Xml("ProductDescription", Xml("Name", "Other") + Xml("PID", "9")));
    ASSERT_TRUE(Open(text));
    EXPECT_EQ(controller.pid(), 7) << "the one of the current device's name";
}

TEST_F(DataFileTest, IsRefusedWithAnEntryInTheLog)
{
    const std::string initFileError = "Invalid syntax in initialization file /tmp/Tarvex.xml";
    const BadDataFile kCases[] = {
        {&InitFileBuilder::root, "SignalTarvex", kInvalid, kOpenSource,
         "File /home/user/mine.xml is not a data file.  Must have root tag of TarvexData"},
        {&InitFileBuilder::version, "2.3.9", kInvalid, kOpenSource, "File version does not meet minimum of 2.4.0"},
        {&InitFileBuilder::component, "family", ObjectError(0xD), kOpenSource,
         "Cannot locate product family in init file /tmp/Tarvex.xml"},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Default", "80")), kSyntax,
         "TarvexController::ReadI2CREgisters", "Invalid XML Syntax for Data file.  No Value found for register"},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Value", "")), kSyntax,
         "TarvexController::ReadI2CRegisters", initFileError},
        {&InitFileBuilder::registers, RegisterXml("Gain", "20", Xml("Value", "100")), 10, "RegisterObject::LetValue",
         "Value 256 out of range for register with 8 bits"},
        {&InitFileBuilder::identity, Xml("PID", "1") + Xml("BoardID", "1") + Xml("ConfigInterface", ""), kSyntax,
         "TarvexController::InitDevice", initFileError},
    };
    UseBoard();
    for (const BadDataFile& bad : kCases) {
        InitFileBuilder file = DataFile();
        file.*bad.place = bad.text;
        ExpectRefused(file.Text(), bad.number, bad.source, bad.description);
    }
    ExpectRefused("noise", kInvalid, kOpenSource, "Unable to load data file /home/user/mine.xml");
    ExpectRefused(DataFile().Text(InitFileBuilder().Component()), kInvalid, kOpenSource,
                  "Invalid file /home/user/mine.xml has more than on FunctionalComponent tag.");
}

TEST_F(DataFileTest, OpensWhateverViewSavedIt)
{
    const struct {
        const char* product;
        const char* inForce;
        const char* version;
        bool opens;
    } kCases[] = {{"Vexlon-Fx_Channel3", "2.5.0", "2.0.0", true},
                  {"Vexlon", "2.4.0", "1.9.9", false},
                  {"Ossary", "2.5.0", "2.4.10", true},
                  {"Ossary", "2.5.0", "2.4.9", false},
                  {"Ossary", "2.4.0", "2.4.0", true},
                  {"Cendra", "2.4.10", "2.3.0", false}};
    for (const auto& each : kCases) {
        InitFileBuilder init;
        init.device = each.product;
        UseBoard(init);
        InitFileBuilder file = DataFile();
        file.device = each.product;
        file.version = each.version;
        state.g_minInitVersion = each.inForce;
        EXPECT_EQ(Open(file.Text()), each.opens) << each.product << " " << each.inForce << " " << each.version;
        state.g_minInitVersion = "2.4.0";
    }
}

}
}
