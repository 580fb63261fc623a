#include "config/ControllerFixture.h"

#include <stdexcept>

namespace tarvex {
namespace {

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
    const auto changed = controller.CurrentProductChanged.Subscribe([](auto, auto, const auto&) { FAIL(); });
    ASSERT_TRUE(Open(DataFile().Text()));
    EXPECT_EQ(raised, (std::vector<std::string>{"Board", kDataPath}));
    ASSERT_EQ(controller.GetI2CRegisterCount(), 2);
    EXPECT_EQ(controller.GetI2CRegister(0)->value(), 0xA);
    EXPECT_TRUE(controller.GetI2CRegister(0)->IsDirty());
    EXPECT_TRUE(controller.GetI2CRegister(1)->IsDirty());
    EXPECT_TRUE(log.entries.empty());
}

TEST_F(DataFileTest, MakesItsProductTheCurrentOne)
{
    InitFileBuilder other;
    other.component = "Others";
    other.device = "Other";
    Use(InitFileBuilder().Text(other.Component()));
    controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    ASSERT_TRUE(controller.InitDevice("Board"));
    InitFileBuilder file = DataFile();
    file.component = "Others";
    file.device = "First";
    file.identity = Xml("PID", "7") + Xml("BoardID", "8") + Xml("ConfigInterface", "I2C");
    std::string text = file.Text();
    const std::string second = Xml("ProductDescription", Xml("Name", "Second") + Xml("PID", "9") + Xml("BoardID", "A") +
                                                             Xml("ConfigInterface", "I2C"));
    text.insert(text.find("</Product>"), second);
    ASSERT_TRUE(Open(text));
    EXPECT_EQ(controller.deviceName(), "First");
    EXPECT_EQ(controller.pid(), 7);
    EXPECT_EQ(controller.BoardID(), 8);
    const auto position = text.find("<Name>Second");
    ASSERT_TRUE(Open(text.replace(position, 12, "<Name>First")));
    EXPECT_EQ(controller.pid(), 7) << "the first of the current device's name";
}

TEST_F(DataFileTest, IsTakenForTheCurrentDeviceWhenItDescribesThat)
{
    UseBoard();
    std::string text = DataFile().Text();
    const std::string before = Xml("ProductDescription", Xml("Name", "First") + Xml("PID", "7"));
    text.insert(text.find("<ProductDescription>"), before);
    ASSERT_TRUE(Open(text));
    EXPECT_EQ(controller.deviceName(), "Board");
    EXPECT_EQ(controller.pid(), 0x0A51);
}

TEST_F(DataFileTest, IsRefusedWithAnEntryInTheLog)
{
    UseBoard();
    constexpr std::int32_t kInvalid = ObjectError(6);
    ExpectRefused("noise", kInvalid, kOpenSource, "Unable to load data file /home/user/mine.xml");
    InitFileBuilder file = DataFile();
    file.root = "SignalTarvex";
    ExpectRefused(file.Text(), kInvalid, kOpenSource,
                  "File /home/user/mine.xml is not a data file.  Must have root tag of TarvexData");
    file = DataFile();
    file.version = "2.3.9";
    ExpectRefused(file.Text(), kInvalid, kOpenSource, "File version does not meet minimum of 2.4.0");
    file = DataFile();
    ExpectRefused(file.Text(InitFileBuilder().Component()), kInvalid, kOpenSource,
                  "Invalid file /home/user/mine.xml has more than on FunctionalComponent tag.");
    file.component = "family";
    ExpectRefused(file.Text(), ObjectError(0xD), kOpenSource,
                  "Cannot locate product family in init file /tmp/Tarvex.xml");
}

TEST_F(DataFileTest, IsRefusedForAMapThatCannotBeBuilt)
{
    UseBoard();
    const char* initFileError = "Invalid syntax in initialization file /tmp/Tarvex.xml";
    InitFileBuilder file = DataFile();
    file.registers = RegisterXml("Gain", "20", Xml("Default", "80"));
    ExpectRefused(file.Text(), ObjectError(9), "TarvexController::ReadI2CREgisters",
                  "Invalid XML Syntax for Data file.  No Value found for register");
    file.registers = RegisterXml("Gain", "20", Xml("Value", ""));
    ExpectRefused(file.Text(), ObjectError(9), "TarvexController::ReadI2CRegisters", initFileError);
    file.registers = RegisterXml("Gain", "20", Xml("Value", "100"));
    ExpectRefused(file.Text(), 10, "RegisterObject::LetValue", "Value 256 out of range for register with 8 bits");
    file = DataFile();
    file.identity = Xml("PID", "1") + Xml("BoardID", "1") + Xml("ConfigInterface", "");
    ExpectRefused(file.Text(), ObjectError(9), "TarvexController::InitDevice", initFileError);
    std::string text = DataFile().Text();
    text.replace(text.find("ProductDescription"), 18, "Description");
    text.replace(text.find("/ProductDescription"), 19, "/Description");
    ExpectRefused(text, ObjectError(9), "TarvexController::InitDevice", initFileError);
}

TEST_F(DataFileTest, OpensWhateverViewSavedIt)
{
    const struct {
        const char* product;
        const char* inForce;
        const char* version;
        bool opens;
    } kCases[] = {{"Vexlon", "2.4.0", "2.0.0", true},      {"Vexlon-Fx_Channel3", "2.5.0", "2.0.0", true},
                  {"Vexlon", "2.4.0", "1.9.9", false},     {"Ossary", "2.5.0", "2.4.10", true},
                  {"Ossary", "2.5.0", "2.4.9", false},     {"Ossary", "2.4.0", "2.4.0", true},
                  {"Ossary-Plus", "2.5.0", "2.4.0", true}, {"Cendra", "2.4.10", "2.3.0", false}};
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

TEST_F(DataFileTest, StaysOpenWhenAViewFailsToShowIt)
{
    UseBoard();
    const auto subscription = controller.DataFileOpened.Subscribe(
        [](const auto&, const auto&) { throw std::runtime_error("a view's own failure"); });
    EXPECT_THROW(Open(DataFile().Text()), std::runtime_error);
    EXPECT_TRUE(log.entries.empty());
    EXPECT_EQ(controller.GetI2CRegister(0)->value(), 0xA);
}

}
}
