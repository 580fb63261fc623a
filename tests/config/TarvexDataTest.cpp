#include "config/ControllerFixture.h"

namespace tarvex {
namespace {

class TarvexDataTest : public testing::Test {
protected:
    bool Open(const std::string& text)
    {
        files.files["/f.xml"] = text;
        data.CloseFile();
        return data.InitToRead("/f.xml");
    }

    ProgramState state;
    FakeFileSystem files;
    TarvexData data{state, files};
};

TEST_F(TarvexDataTest, RaisesWhileItIsNotInitialized)
{
    const auto expectRefused = [](auto action) {
        ExpectError(action, 1000, "TarvexData", "TarvexData must be initialized before use.");
    };
    expectRefused([&] { data.Path(); });
    expectRefused([&] { data.GetProduct(1, 1); });
    ASSERT_TRUE(Open(InitFileBuilder().Text()));
    data.CloseFile();
    expectRefused([&] { data.VendorID(); });
}

TEST_F(TarvexDataTest, OpensWhatIsThereWellFormedAndNewEnough)
{
    EXPECT_FALSE(data.InitToRead("/f.xml"));
    ExpectError([&] { Open("<SignalTarvex version=\"2.5.0\">"); }, 403, "TarvexData::OpenXMLFile",
                "Failed to open /f.xml-line 1, column 31: the document ends inside an element");
    const struct {
        const char* version;
        const char* minimum;
        bool opens;
    } kCases[] = {{"2.3.9", "2.4.0", false},  {"2.4.0", "2.4.0", true},     {"2.4.10", "2.4.10", true},
                  {"2.4.9", "2.4.10", false}, {"2.4.10", "2.5.0", false},   {"", "2.4.0", false},
                  {"new", "2.4.0", false},    {"99999.0.0", "2.4.0", false}};
    for (const auto& each : kCases) {
        InitFileBuilder file;
        file.version = each.version;
        state.g_minInitVersion = each.minimum;
        EXPECT_EQ(Open(file.Text()), each.opens) << each.version << " " << each.minimum;
        EXPECT_EQ(data.IsInitialized(), each.opens);
    }
}

TEST_F(TarvexDataTest, ChecksTheVendor)
{
    InitFileBuilder file;
    file.vid = "12c5";
    ASSERT_TRUE(Open(file.Text()));
    EXPECT_TRUE(data.CheckVendorID(0x12C5));
    for (const char* vid : {"012C5", "12C5 ", "4805", ""}) {
        file.vid = vid;
        ASSERT_TRUE(Open(file.Text()));
        ExpectError([&] { data.CheckVendorID(0x12C5); }, 1001, "TarvexData::CheckVendorID",
                    "Supplied vendorID parameter does not match the VID in /f.xml");
    }
}

TEST_F(TarvexDataTest, AnswersForOtherFilesWithoutTouchingItsOwn)
{
    ASSERT_TRUE(Open(InitFileBuilder().Text()));
    InitFileBuilder other;
    other.version = "2.3.0";
    other.device = "Other";
    files.files["/old.xml"] = other.Text();
    files.files["/bad.xml"] = "noise";
    EXPECT_TRUE(data.CheckFileVersion("/f.xml"));
    EXPECT_FALSE(data.CheckFileVersion("/old.xml"));
    EXPECT_FALSE(data.CheckFileVersion("/bad.xml"));
    EXPECT_TRUE(data.CheckForProduct("/f.xml", "Board"));
    EXPECT_FALSE(data.CheckForProduct("/old.xml", "Board"));
    EXPECT_FALSE(data.CheckForProduct("/none.xml", "Board"));
    EXPECT_EQ(data.Path(), "/f.xml");
}

TEST_F(TarvexDataTest, MakesTheProductOfABoard)
{
    InitFileBuilder file;
    file.identity = Xml("BoardID", "C020") + Xml("BoardID", "00C0A0") + Xml("IProductClassName", "OssaryIOBoard");
    InitFileBuilder bare;
    bare.identity = Xml("BoardID", "1");
    ASSERT_TRUE(Open(file.Text(bare.Component() + Xml("Slot", Xml("BoardID", "2")))));
    const auto ossary = data.GetProduct(0xC0A0, 24);
    EXPECT_EQ(ossary->Name(), "Ossary");
    EXPECT_EQ(ossary->BoardID(), 0xC0A0);
    EXPECT_FALSE(data.GetProduct(0xC4A1, 1));
    ExpectError([&] { data.GetProduct(1, 1); }, 1001, "TarvexData::DoCreateProduct",
                "Unable to find IProductClassName");
    ExpectError([&] { data.GetProduct(2, 1); }, 1001, "TarvexData::GetProduct", "Invalid XML file");
}

}
}
