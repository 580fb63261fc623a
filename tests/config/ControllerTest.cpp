#include "config/ControllerFixture.h"
#include "support/FakeDevice.h"

#include <fstream>

namespace tarvex {
namespace {

TEST_F(ControllerTest, LetsGoOfABoardThatTheFileDoesNotKnow)
{
    UseBoard();
    FakeDevice device;
    device.name = "Toaster";
    prompts.ExpectMessage("Successful connection to Toaster but unable to find product in initialization file "
                          "/tmp/Tarvex.xml.  Disconnecting from Toaster.");
    EXPECT_FALSE(controller.ConnectDevice("path", device));
    EXPECT_FALSE(device.connected);
    ExpectBoardUntouched();
}

TEST_F(ControllerTest, TransfersEveryRegisterUntilTheLinkFails)
{
    UseBoard();
    FakeDevice device;
    device.memory[{0x451, 0x20}] = {5};
    EXPECT_TRUE(controller.ReadI2CRegister(device, "Gain", 7));
    EXPECT_EQ(device.transfers, (std::vector<FakeDevice::Transfer>{{FakeDevice::Kind::Read, 0x451, 0x20, {5}, 7}}));
    EXPECT_EQ(kept->value(), 5);
    ExpectError([&] { controller.ReadI2CRegister(device, "gain"); }, kErrInvalidCall);
    ExpectError([&] { controller.ReadPropertyByName(device, "gain"); }, 502);
    device.onTransfer = [&](const auto&) { controller.InitDevice("Board"); }; // ends on those it began with
    controller.WriteI2CRegister(device, "");
    EXPECT_EQ(device.Parameters(FakeDevice::Kind::Write), (std::vector<std::int32_t>{0x20, 0x21}));
    EXPECT_EQ(window.progress, (std::vector<std::string>{"tick 1", "0 of 2", "tick 1", "tick 1"}));
    device.raiseAt.emplace(FakeDevice::Place{0x451, 0x20}, Error(303, "link", "not connected"));
    ExpectError([&] { controller.ReadI2CRegister(device, ""); }, 303);
    EXPECT_EQ(device.transfers.size(), 3U);
}

TEST(TarvexData, OpensWhatIsWellFormedNewEnoughAndOfTheVendor)
{
    ProgramState state;
    FakeFileSystem files;
    TarvexData data(state, files);
    EXPECT_FALSE(data.InitToRead("/f.xml"));
    files.files["/f.xml"] = "<SignalTarvex version=\"2.5.0\">";
    ExpectError([&] { data.InitToRead("/f.xml"); }, 403, "TarvexData::OpenXMLFile",
                "Failed to open /f.xml-line 1, column 31: the document ends inside an element");
    const std::tuple<const char*, const char*, bool, bool> kCases[] = {{"2.3.9", "12C5", false, false},
                                                                       {"new", "12C5", false, false},
                                                                       {"2.4.0", "12c5", true, true},
                                                                       {"2.4.0", "012C5", true, false},
                                                                       {"2.4.10", "4805", true, false}};
    for (const auto& [version, vid, opens, isOurs] : kCases) {
        InitFileBuilder file;
        file.version = version;
        file.vid = vid;
        files.files["/f.xml"] = file.Text();
        data.CloseFile();
        ExpectError([&] { data.VendorID(); }, 1000, "TarvexData", "TarvexData must be initialized before use.");
        EXPECT_EQ(data.InitToRead("/f.xml"), opens) << version;
        if (isOurs)
            EXPECT_TRUE(data.CheckVendorID(0x12C5)) << vid;
        else if (opens)
            ExpectError([&] { data.CheckVendorID(0x12C5); }, 1001, "TarvexData::CheckVendorID",
                        "Supplied vendorID parameter does not match the VID in /f.xml");
    }
}

TEST_F(ControllerTest, InitializesEveryShippedDeviceWithDistinctRegisterPlaces)
{
    std::ifstream file(TARVEX_SHARE "/Tarvex.xml");
    Use({std::istreambuf_iterator<char>(file), {}});
    EXPECT_TRUE(initFile->CheckVendorID(0x12C5));
    const auto names = controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    EXPECT_EQ(names.size(), 8U);
    for (const std::string& name : names) {
        ASSERT_TRUE(controller.InitDevice(name)) << name;
        EXPECT_GT(controller.GetPropertyCount(), 0) << name;
        std::set<std::pair<std::int32_t, std::int32_t>> places;
        for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i) {
            const auto each = controller.GetI2CRegister(i);
            EXPECT_TRUE(places.emplace(each->BaseAddress(), each->Address()).second) << name << " " << each->Name();
        }
    }
    EXPECT_EQ(controller.GetCommLinkNames("Vexlon"), (std::vector<std::string>{"USB-HID Device", "Demo"}));
    for (const int id : {0xC4A0, 0xC4B2})
        EXPECT_EQ(initFile->GetProduct(id, 1)->Name(), "Cendra") << id;
}

TEST_F(ControllerTest, BuildsRegistersAsTheFileSays)
{
    InitFileBuilder file;
    file.registers =
        RegisterXml("Gain", "2A",
                    Xml("Description", " two words ") + Xml("Default", "A5") + BitsXml("ReadOnly", "4:7", "State") +
                        BitsXml("Reserved", "0") + BitsXml("WriteOnly", "1") + BitsXml("ReadWrite", "2", "") +
                        BitsXml("readwrite", "3", "x")) +
        RegisterXml("Offset", "21", Xml("Default", ""));
    file.moreLists = Xml("RegisterList baseAddress=\"00C4\" description=\"Second\"", RegisterXml("Plain", "7FFFFFFF"));
    UseBoard(file);
    const RegisterObject& gain = *controller.GetI2CRegister(0);
    EXPECT_EQ(gain.Description(), " two words ");
    EXPECT_EQ(gain.BaseAddress(), 0x0451);
    EXPECT_EQ(gain.Address(), 0x2A);
    EXPECT_EQ(gain.value(), 0xA5);
    const std::int16_t flags[] = {128, 4, 2, 0, 1, 1, 1, 1};
    const char* descriptions[] = {"", "", "", "x", "State", "State", "State", "State"};
    for (std::int16_t bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(gain.GetBitFlags(bit), flags[bit]) << bit;
        EXPECT_EQ(gain.GetBitDescription(bit), descriptions[bit]) << bit;
    }
    EXPECT_EQ(controller.GetI2CRegister(2)->BaseAddress(), 0xC4);
    EXPECT_EQ(controller.GetI2CRegister(2)->Address(), 0x7FFFFFFF);
}

TEST_F(ControllerTest, BuildsPropertiesAsTheFileSays)
{
    InitFileBuilder file;
    file.properties = PropertyXml("Size", Xml("UI", "Range") + Xml("Prompt", "First?") + FieldXml("LSB", "Offset") +
                                              Xml("Prompt", "Second?") + FieldXml("MSB", "Gain", "1,4:7"));
    UseBoard(file);
    const auto size = controller.GetPropertyByName("Size");
    EXPECT_EQ(size->WidgetType(), "Range");
    EXPECT_EQ(size->Prompts(), (std::vector<std::string>{"First?", "Second?"}));
    EXPECT_EQ(size->GetBitset(0)->ParentRegister(), "Offset");
    EXPECT_EQ(controller.GetPropertyBitsetByName("Size", "MSB")->GetBitParentIndex(1), 4);
    ExpectError([&] { size->GetBitset(2); }, 501, "class TarvexProperty", "Index was out of range.");
}

}
}
