#include "config/ControllerFixture.h"

namespace tarvex {
namespace {

TEST(TarvexData, OpensWhatIsWellFormedNewEnoughAndOfTheVendor)
{
    ProgramState state;
    FakeFileSystem files;
    TarvexData data(state, files);
    EXPECT_FALSE(data.InitToRead("/f.xml"));
    files.files["/f.xml"] = "<SignalTarvex version=\"2.5.0\">";
    ExpectError([&] { data.InitToRead("/f.xml"); }, 403, "TarvexData::OpenXMLFile",
                "Failed to open /f.xml-line 1, column 31: the document ends inside an element");
    const struct {
        const char* version;
        const char* vid;
        bool opens;
        bool isOurs;
    } kCases[] = {{"2.3.9", "12C5", false, false},
                  {"new", "12C5", false, false},
                  {"2.4.0", "12c5", true, true},
                  {"2.4.0", "012C5", true, false},
                  {"2.4.10", "4805", true, false}};
    for (const auto& each : kCases) {
        InitFileBuilder file;
        file.version = each.version;
        file.vid = each.vid;
        files.files["/f.xml"] = file.Text();
        data.CloseFile();
        ExpectError([&] { data.VendorID(); }, 1000, "TarvexData", "TarvexData must be initialized before use.");
        EXPECT_EQ(data.InitToRead("/f.xml"), each.opens) << each.version;
        if (each.isOurs)
            EXPECT_TRUE(data.CheckVendorID(0x12C5)) << each.vid;
        else if (each.opens)
            ExpectError([&] { data.CheckVendorID(0x12C5); }, 1001, "TarvexData::CheckVendorID",
                        "Supplied vendorID parameter does not match the VID in /f.xml");
    }
}

}
}
