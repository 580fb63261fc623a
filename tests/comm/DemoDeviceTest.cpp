#include "comm/DemoDevice.h"

#include "support/ExpectError.h"
#include "support/ScriptedPrompts.h"

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
    Write(20, 1, {7});
    EXPECT_EQ(Read(21, 0), Bytes{128});
    EXPECT_EQ(Read(10, 0), Bytes{1});
    EXPECT_EQ(Read(10, 1), Bytes{128});
    EXPECT_EQ(Read(19, 101), Bytes{7});
}

TEST_F(DemoDeviceTest, RefusesPlacesOutsideItsMemory)
{
    const struct {
        std::int32_t base;
        std::int32_t parameter;
        bool inside;
    } cases[] = {{160'000, 0, true}, {160'000, 1, false}, {-1, 99, false},        {-1, 100, true},
                 {0, -1, false},     {0, 250, true},      {INT32_MAX, 99, false}, {0, 16'000'001, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.base) + " " + std::to_string(c.parameter));
        if (c.inside) {
            Write(c.base, c.parameter, {9});
            EXPECT_EQ(Read(c.base, c.parameter), Bytes{9});
        } else {
            ExpectError([&] { Write(c.base, c.parameter, {9}); }, kErrSubscript);
            ExpectError([&] { Read(c.base, c.parameter); }, kErrSubscript);
        }
    }
}

}
}
