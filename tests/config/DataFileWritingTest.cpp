#include "comm/Enclosure.h"
#include "config/ControllerFixture.h"
#include "config/DataFileSaving.h"
#include "support/FakeClock.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

/// Files of which the write with a given number, counted down, fails.
class WritesThatFail : public FakeFileSystem {
public:
    void WriteWorkingFile(const std::string& path, std::string_view content) override
    {
        CountDown();
        FakeFileSystem::WriteWorkingFile(path, content);
    }
    void ReplaceFile(const std::string& path, std::string_view content) override
    {
        CountDown();
        FakeFileSystem::ReplaceFile(path, content);
    }
    int left = -1;

private:
    void CountDown()
    {
        if (left-- == 0)
            Raise(ObjectError(1), "WritesThatFail", "No space left on device");
    }
};

class DataFileWritingTest : public ControllerTest {
protected:
    static constexpr const char* kIds = "<PID>1</PID><BoardID>C4A0</BoardID><ConfigInterface>I2C</ConfigInterface>";

    /// The init file of boards in enclosures, with another family behind whose texts repeat the names in use.
    static InitFileBuilder Boards()
    {
        InitFileBuilder file;
        file.identity = std::string(kIds) + Xml("IProductClassName", "CendraIOBoard");
        file.wordSize = "2";
        file.baseAddress = "00C4";
        file.registers = RegisterXml("Red_Skew", "10") + RegisterXml("Board", "11");
        file.moreLists = Xml("RegisterList baseAddress=\"00C5\"", RegisterXml("Twin &amp; &lt;co>", "10"));
        file.properties = PropertyXml("Board", FieldXml("Board", "Red_Skew"));
        return file;
    }

    void Save() { SaveDataFile({state, disk, clock}, *initFile, controller, kDataPath); }

    void SetUp() override
    {
        InitFileBuilder other;
        other.device = "Matrix";
        other.identity = Xml("BoardID", "C020") + Xml("IProductClassName", "OssaryIOBoard");
        Use(Boards().Text(other.Component()));
        controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
        ASSERT_TRUE(controller.InitDevice("Board"));
        enclosure.SetNodeBasics({0x1A2D, 1, 3, "Hall \"A\"", "Rack\nC", "2.12"});
        enclosure.DefineSlotPops({0xC4A0, 0xC020}, 2, initFile.get());
    }

    WritesThatFail disk;
    FakeClock clock;
    FakeDevice board;
    Enclosure enclosure{log};
};

TEST_F(DataFileWritingTest, GivesBackWhatWasSaved)
{
    controller.GetI2CRegisterByName("Twin & <co>")->value(0xA);
    controller.GetI2CRegister(0)->value(0x5C);
    controller.GetI2CRegister(1)->value(0xFFFF);
    Save();
    const std::string saved = disk.files[kDataPath];
    for (const char* part : {"lastModified=\"2026-03-04 15:06:07\" version=\"2.4.0\"", "<VID>4805</VID>",
                             "<Value>5C</Value>", "<Value>FFFF</Value>", "<Value>A</Value>"})
        EXPECT_NE(saved.find(part), std::string::npos) << part;
    EXPECT_EQ(disk.files.size(), 1U) << "the working file is gone";
    clock.text = "2026-03-04 15:06:08";
    Save();
    std::string again = disk.files[kDataPath];
    again.replace(again.find(":08\""), 4, ":07\"");
    EXPECT_EQ(again, saved);

    files.files[kDataPath] = saved;
    ASSERT_TRUE(controller.InitDeviceFromFile(kDataPath));
    EXPECT_EQ(controller.GetPropertyBitsetByName("Board", "Board")->GetValue(), 0x5C);
    EXPECT_EQ(controller.GetI2CRegister(1)->value(), 0xFFFF);
    Save();
    EXPECT_EQ(disk.files[kDataPath].find("<Value>FFFF"), saved.find("<Value>FFFF"));
}

TEST_F(DataFileWritingTest, LeavesTheOldFileWhenAnyStepFails)
{
    disk.files[kDataPath] = "old";
    for (int step = 0; step < 3; ++step) {
        disk.left = step;
        EXPECT_THROW(Save(), Error) << step;
        EXPECT_EQ(disk.files, (std::map<std::string, std::string>{{kDataPath, "old"}})) << step;
    }
    disk.left = 3;
    Save();
    EXPECT_NE(disk.files[kDataPath], "old");
}

TEST_F(DataFileWritingTest, RefusesWhatItCannotWrite)
{
    TarvexData file(state, disk);
    ExpectError([&] { file.Commit(kDataPath); }, 1000, "TarvexData", "TarvexData must be initialized before use.");
    ASSERT_TRUE(file.InitToWrite(*initFile, kDataPath, clock));
    EXPECT_EQ(file.Path(), kDataPath);
    ExpectError([&] { file.WriteSimpleData(controller); }, 101, "TarvexData::WriteSimpleData",
                "Invalid XML data file.  Unable to find RegisterList with baseAddress = 00C4");
    EXPECT_FALSE(file.IsInitialized()) << "nothing incomplete is committed";
    ASSERT_TRUE(file.InitToWrite(*initFile, "", clock));
    EXPECT_THROW(file.AddProduct(*initFile, "Red_Skew"), Error);
    ASSERT_TRUE(file.InitToWrite(*initFile, "", clock));
    EXPECT_FALSE(file.InitToWrite(*initFile, "", clock));
    EXPECT_FALSE(file.IsInitialized());
    files.files[kDataPath] = "<TarvexData version=\"2.5.0\"/>";
    EXPECT_FALSE(controller.InitDeviceFromFile(kDataPath));
    ASSERT_EQ(log.entries.size(), 1U);
    EXPECT_EQ(log.entries[0].number, ObjectError(0xD));
    EXPECT_EQ(log.entries[0].description, "Cannot locate product  in init file /tmp/Tarvex.xml");
}

TEST_F(DataFileWritingTest, KeepsEnclosuresOfMixedBoards)
{
    controller.GetI2CRegister(0)->value(0x77);
    TarvexData file(state, disk);
    ASSERT_TRUE(file.InitToWrite(*initFile, kDataPath, clock));
    file.AddProduct(*initFile, "Board");
    file.AddProduct(*initFile, "Board");
    board.memory[{0xC4, 0x10}] = {0x0A, 0x01};
    EXPECT_TRUE(file.WriteEnclosureData(enclosure, controller, board, &window));
    board.memory[{0xC4, 0x10}] = {0x0B, 0x01};
    EXPECT_TRUE(file.WriteEnclosureData(enclosure, controller, board, nullptr));
    file.Commit(kDataPath);
    EXPECT_EQ(controller.GetI2CRegister(0)->value(), 0x77) << "edits stay";
    EXPECT_EQ(board.transfers.size(), 8U) << "one register of four connectors, twice";
    EXPECT_EQ(board.transfers.at(1).aspi, 8) << "of the second connector";

    TarvexData read(state, disk);
    ASSERT_TRUE(read.InitToRead(kDataPath));
    const auto all = read.GetAllEnclosures(log);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0]->Name() + all[0]->Description() + all[0]->ProductQualifier(), "Rack\nCHall \"A\"3");
    EXPECT_EQ(all[0]->ZorbusAddress(), 0x1A2D);
    EXPECT_EQ(all[0]->EnclosureType(), 1);
    EXPECT_EQ(read.GetSlotPops(0x1A2D), (std::vector<std::int32_t>{0xC4A0, 0xC020}));
    ExpectError([&] { read.GetSlotPops(0xAB); }, 1002, "TarvexData::GetSlotPops",
                "Cannot find enclosure 0xAB in /home/user/mine.xml");
    using enum ChannelDirection;
    const std::tuple<const char*, std::int16_t, ChannelDirection, const char*, std::int32_t> kCases[] = {
        {"Cendra", 4, Source, "Red_Skew", 0x10B}, {"Cendra", 4, Both, "Red_Skew", -1},
        {"Cendra", 5, Source, "Red_Skew", -1},    {"Cendra", 4, Destination, "Red_Skew", -1},
        {"Cendra", 4, Source, "Board", -1},       {"Ossary", 17, Source, "Red_Skew", -1}};
    for (const auto& [product, channel, direction, name, expected] : kCases) {
        std::int32_t value = -1;
        EXPECT_EQ(read.ReadChannelRegisterValue(*all[0], product, channel, direction, name, value), expected >= 0);
        EXPECT_EQ(value, expected);
    }
}

TEST_F(DataFileWritingTest, EndsWithAChannelThatCannotBeRead)
{
    for (const std::size_t delivered : {0U, 1U}) {
        TarvexData file(state, disk);
        ASSERT_TRUE(file.InitToWrite(*initFile, kDataPath, clock));
        file.AddProduct(*initFile, "Board");
        board.deliver = delivered;
        ExpectError([&] { file.WriteEnclosureData(enclosure, controller, board, nullptr); }, ObjectError(1),
                    "TarvexData::WriteEnclosureData", "Failed to read Red_Skew");
        EXPECT_FALSE(file.IsInitialized());
        EXPECT_TRUE(disk.files.empty());
    }
}

}
}
