#include "config/TarvexData.h"

#include "config/ControllerFixture.h"
#include "config/MinInitVersion.h"

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
    expectRefused([&] { data.RootNode(); });
    expectRefused([&] { data.CheckFileVersion("/f.xml"); });
    expectRefused([&] { data.CheckForProduct("/f.xml", ""); });
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
    EXPECT_FALSE(data.LastErrorText().empty());
    EXPECT_FALSE(data.IsInitialized());
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

TEST_F(TarvexDataTest, IsUninitializedByASecondOpen)
{
    ASSERT_TRUE(Open(InitFileBuilder().Text()));
    EXPECT_EQ(data.Path(), "/f.xml");
    EXPECT_EQ(data.Version(), "2.5.0");
    EXPECT_FALSE(data.InitToRead("/f.xml"));
    EXPECT_FALSE(data.IsInitialized());
    EXPECT_TRUE(data.InitToRead("/f.xml"));
}

TEST_F(TarvexDataTest, ChecksTheVendor)
{
    InitFileBuilder file;
    file.vid = "12c5";
    ASSERT_TRUE(Open(file.Text()));
    EXPECT_TRUE(data.CheckVendorID(0x12C5));
    EXPECT_EQ(data.VendorID(), 0x12C5);
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
    EXPECT_FALSE(data.CheckFileVersion("/none.xml"));
    EXPECT_TRUE(data.CheckForProduct("/f.xml", "Board"));
    EXPECT_TRUE(data.CheckForProduct("/old.xml", "Other"));
    EXPECT_FALSE(data.CheckForProduct("/old.xml", "Board"));
    EXPECT_FALSE(data.CheckForProduct("/f.xml", "Gain"));
    EXPECT_FALSE(data.CheckForProduct("/f.xml", ""));
    EXPECT_FALSE(data.CheckForProduct("/bad.xml", "Board"));
    EXPECT_FALSE(data.CheckForProduct("/none.xml", "Board"));
    EXPECT_EQ(data.Path(), "/f.xml");
}

TEST_F(TarvexDataTest, AnswersWithoutTreeAndWithoutFile)
{
    ASSERT_TRUE(Open(InitFileBuilder().Text()));
    std::weak_ptr<const XmlDocument> tree = data.Tree();
    EXPECT_FALSE(tree.expired()) << "a start reads the file once";
    data.ReleaseTree();
    EXPECT_TRUE(tree.expired());
    files.files.clear();
    EXPECT_EQ(data.ProductNameList(), std::vector<std::string>{"Board"});
    {
        const auto held = data.Tree();
        EXPECT_EQ(data.Tree(), held) << "one for all who hold it";
        tree = held;
    }
    EXPECT_TRUE(tree.expired());
    EXPECT_EQ(data.RootNode().Attribute("version"), "2.5.0");
}

TEST_F(TarvexDataTest, ListsProductsAndTheirLinks)
{
    InitFileBuilder second;
    second.device = "Second";
    second.links = InitFileBuilder::LinkXml("USB", "A") + InitFileBuilder::LinkXml("Net", "B");
    ASSERT_TRUE(Open(InitFileBuilder().Text(Xml("Deeper", second.Component()))));
    EXPECT_EQ(data.ProductNameList(), (std::vector<std::string>{"Board", "Second"}));
    EXPECT_EQ(data.SupportedCommList("Second"), (std::vector<std::string>{"USB", "Net"}));
    EXPECT_TRUE(data.SupportedCommList("second").empty());
    ASSERT_TRUE(Open("<SignalTarvex version=\"2.5.0\"/>"));
    ExpectError([&] { data.ProductNameList(); }, 1001, "TarvexData::ProductList property",
                "No Functional Components found in file /f.xml");
}

TEST_F(TarvexDataTest, MakesTheProductOfABoard)
{
    InitFileBuilder file;
    file.identity = Xml("BoardID", "C020") + Xml("BoardID", "00C0A0") + Xml("IProductClassName", "OssaryIOBoard");
    InitFileBuilder cendra;
    cendra.identity = Xml("BoardID", "c4a0") + Xml("IProductClassName", "CendraIOBoard");
    InitFileBuilder bare;
    bare.identity = Xml("BoardID", "1");
    ASSERT_TRUE(Open(file.Text(cendra.Component() + bare.Component() + Xml("Slot", Xml("BoardID", "2")))));
    const auto ossary = data.GetProduct(0xC0A0, 24);
    ASSERT_TRUE(ossary);
    EXPECT_EQ(ossary->Name(), "Ossary");
    EXPECT_EQ(ossary->BoardID(), 0xC0A0);
    EXPECT_EQ(data.GetProduct(0xC4A0, 1)->Name(), "Cendra");
    EXPECT_FALSE(data.GetProduct(0xC4A1, 1));
    ExpectError([&] { data.GetProduct(1, 1); }, 1001, "TarvexData::DoCreateProduct",
                "Unable to find IProductClassName");
    ExpectError([&] { data.GetProduct(2, 1); }, 1001, "TarvexData::GetProduct", "Invalid XML file");
}

TEST(MinInitVersion, FollowsTheProduct)
{
    EXPECT_EQ(MinInitVersionForProduct("Vexlon"), "2.0.0");
    EXPECT_EQ(MinInitVersionForProduct("Vexlon-Fx"), "2.0.0");
    EXPECT_EQ(MinInitVersionForProduct("Vexlon-Fx_Channel2"), "2.0.0");
    EXPECT_EQ(MinInitVersionForProduct("Ossary"), "2.4.10");
    for (const char* product : {"Cendra", "Ossary-Plus", "Kestra-Fx", ""})
        EXPECT_EQ(MinInitVersionForProduct(product), "2.4.0") << product;
}

}
}
