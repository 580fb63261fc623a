#include "comm/DemoDevice.h"

#include "support/ExpectError.h"
#include "support/ScriptedPrompts.h"

#include <algorithm>
#include <random>

namespace tarvex {
namespace {

class DemoDeviceTest : public testing::Test {
protected:
    /// The bytes delivered.
    Bytes Read(std::int32_t base, std::int32_t parameter, std::int16_t wanted = 1)
    {
        Bytes bytes = device.ReadFrom(base, parameter, wanted, kNoAspi);
        EXPECT_EQ(bytes.size(), 4U);
        bytes.resize(static_cast<std::size_t>(wanted));
        return bytes;
    }
    void Write(std::int32_t base, std::int32_t parameter, const Bytes& bytes)
    {
        device.WriteTo(base, parameter, bytes, static_cast<std::int16_t>(bytes.size()), 77);
    }

    ScriptedPrompts prompts;
    DemoDevice demo{prompts};
    IDevice& device = demo;
};

TEST_F(DemoDeviceTest, KeepsWhatIsWrittenAndGrowsAround)
{
    EXPECT_EQ(Read(5, 3), Bytes{1});
    Write(5, 3, {0x34, 0x12});
    EXPECT_EQ(Read(5, 3), (Bytes{0x34, 0x12}));
    EXPECT_EQ(Read(9, 0, 3), Bytes{1});
    EXPECT_EQ(Read(5, 3), (Bytes{0x34, 0x12}));
    Write(20, 1, {7});
    EXPECT_EQ(Read(20, 2), Bytes{128});
    EXPECT_EQ(Read(21, 0), Bytes{128});
    EXPECT_EQ(Read(10, 0), Bytes{1});
    EXPECT_EQ(Read(10, 1), Bytes{128});
    EXPECT_EQ(Read(19, 101), Bytes{7});
}

TEST_F(DemoDeviceTest, RefusedWriteHasGrownTheMemory)
{
    ExpectError([&] { Write(5, 3, Bytes(5)); }, 10, "Function:BytesToLong",
                "5 bytes is too many to convert to long, max is 4");
    ExpectError([&] { Write(5, 4, {}); }, kErrTypeMismatch);
    EXPECT_EQ(Read(5, 3), Bytes{128});
    Write(5, 3, Bytes(4, 0xFF));
    ExpectError([&] { Read(5, 3); }, 10, "Function:LongToBytes");
}

TEST_F(DemoDeviceTest, RefusesPlacesOutsideItsMemory)
{
    const struct {
        std::int32_t base;
        std::int32_t parameter;
        bool inside;
    } cases[] = {{160'000, 0, true},    {160'000, 1, false},    {-1, 99, false},        {-1, 100, true},
                 {0, -1, false},        {0, 250, true},         {INT32_MAX, 99, false}, {INT32_MIN, 0, false},
                 {0, 16'000'000, true}, {0, 16'000'001, false}, {42'949'673, 0, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.base) + " " + std::to_string(c.parameter));
        DemoDevice fresh(prompts);
        IDevice& link = fresh;
        std::int16_t count = 1;
        if (c.inside) {
            link.WriteTo(c.base, c.parameter, {9}, 1, kNoAspi);
            EXPECT_EQ(link.ReadFrom(c.base, c.parameter, count, kNoAspi).at(0), 9);
        } else {
            ExpectError([&] { link.WriteTo(c.base, c.parameter, {9}, 1, kNoAspi); }, kErrSubscript);
            ExpectError([&] { link.ReadFrom(c.base, c.parameter, count, kNoAspi); }, kErrSubscript);
        }
    }
}

TEST(DemoMemory, AnswersAsAGrowingArrayWould)
{
    std::mt19937 random(20240229);
    const auto below = [&random](int end) { return static_cast<std::int64_t>(random() % static_cast<unsigned>(end)); };
    DemoMemory memory;
    std::vector<std::int32_t> array;
    for (int i = 0; i < 5000; ++i) {
        const std::int64_t base = below(1 + i / 20);
        const std::int64_t index = base * 100 + below(150);
        const std::int64_t last = (base + 1) * 100;
        const bool write = below(3) == 0;
        memory.Reach(index, last, write ? 128 : 1);
        if (index >= static_cast<std::int64_t>(array.size()))
            array.resize(static_cast<std::size_t>(std::max(index, last)) + 1, write ? 128 : 1);
        if (write) {
            memory.Write(index, i);
            array[static_cast<std::size_t>(index)] = i;
        }
        const std::int64_t probe = below(static_cast<int>(array.size()));
        ASSERT_EQ(memory.Read(probe), array[static_cast<std::size_t>(probe)]) << "step " << i;
    }
    ExpectError([&] { memory.Read(static_cast<std::int64_t>(array.size())); }, kErrSubscript);
    ExpectError([&] { memory.Write(-1, 1); }, kErrSubscript);
}

TEST_F(DemoDeviceTest, ConnectsByAnyWay)
{
    EXPECT_FALSE(device.IsConnected());
    EXPECT_TRUE(device.VerifyCommunications(0, 0));
    EXPECT_EQ(device.connect(0xA51, 0x12C5), 1);
    EXPECT_TRUE(device.IsConnected());
    EXPECT_EQ(device.Disconnect(), 0);
    EXPECT_FALSE(device.IsConnected());
    EXPECT_EQ(device.ConnectToPath("Vexlon"), 0);
    EXPECT_TRUE(device.IsConnected());
    EXPECT_EQ(device.ConnectToPath("Vexlon (0x0A51)"), 1);
}

TEST_F(DemoDeviceTest, BrowsingShowsTheDialogWithoutEntries)
{
    prompts.ExpectBrowse(std::nullopt);
    EXPECT_EQ(device.Browse(), "");
    ASSERT_EQ(prompts.browsed.size(), 1U);
    EXPECT_TRUE(prompts.browsed.front().empty());
}

TEST_F(DemoDeviceTest, NamesItself)
{
    EXPECT_EQ(device.ProductID(), 1);
    EXPECT_EQ(device.ProductVendorID(), 0);
    EXPECT_EQ(device.productName(), "Demo device has no name");
    EXPECT_EQ(device.DeviceType(), "Demo device");
    EXPECT_EQ(device.DevicePath(), "");
    EXPECT_EQ(device.FirmwareVersion(), "v0.0");
}

}
}
