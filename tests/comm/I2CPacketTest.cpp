#include "comm/I2CPacket.h"

#include "support/ExpectError.h"

#include <numeric>

namespace tarvex {
namespace {

TEST(I2CPacket, DeclaresWholeWordsAndRefusesWhatDoesNotFit)
{
    Bytes data(256);
    std::iota(data.begin(), data.end(), std::uint8_t{0});
    const struct {
        std::int32_t processor, parameter;
        int code, size, declared, width, error;
    } cases[] = {{128, 64, 0x20, 1, 1, 1, 0},     {0, 65535, 0x20, 0, 0, 0, 0},     {65535, 0, 0x20, 31, 31, 1, 0},
                 {128, 64, 0x00, 0, 0, 0, 0},     {128, 64, 0x40, 3, 2, 2, 0},      {128, 64, 0x80, 124, 124, 4, 0},
                 {128, 64, 0xE0, 217, 217, 7, 0}, {128, 64, 0x20, 32, 0, 0, 702},   {128, 64, 0x40, 63, 0, 0, 702},
                 {128, 64, 0x00, 1, 0, 0, 702},   {128, 64, 0x10, 0, 0, 0, 704},    {0x10000, 64, 0x20, 1, 0, 0, 701},
                 {-1, 64, 0x20, 1, 0, 0, 701},    {-1, 0x10000, 0x10, 1, 0, 0, 700}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.code) + " " + std::to_string(c.size));
        I2CPacket packet;
        const auto init = [&] {
            packet.Init(c.processor, c.parameter, data, static_cast<std::uint8_t>(c.size),
                        static_cast<std::uint8_t>(c.code));
        };
        c.error == 0 ? init() : ExpectError(init, c.error);
        EXPECT_EQ(packet.size(), c.error == 0 ? 5 + c.size : 4);
        EXPECT_EQ(packet.ProcessorID(), c.error == 0 ? c.processor : 0);
        EXPECT_EQ(packet.ParameterID(), c.error == 0 ? c.parameter : 0);
        EXPECT_EQ(packet.dataSize(), c.declared);
        EXPECT_EQ(packet.dataWidth(), c.width);
    }
}

TEST(I2CPacket, TakesNoMoreThanTheBytesAtHand)
{
    I2CPacket sent;
    sent.Init(1105, 32, {0xFF}, 1, 0x20);
    EXPECT_EQ(sent.buffer(), (Bytes{0x51, 4, 0x20, 0, 0x21, 0xFF}));
    I2CPacket packet;
    EXPECT_FALSE(packet.CreatePacket(sent.buffer(), 4) || packet.CreatePacket(Bytes(4), 9));
    EXPECT_TRUE(packet.CreatePacket(sent.buffer(), 100));
    EXPECT_EQ(packet.data(), Bytes{0xFF});
    EXPECT_TRUE(packet.CreatePacket(sent.buffer(), 5));
    ExpectError([&] { packet.data(); }, 703, "I2CPacket::data", "Data array is empty");
    ExpectError([&] { packet.Init(1, 1, {}, 1, 0x20); }, kErrSubscript);
}

}
}
