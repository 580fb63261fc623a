#include "shell/I2CPacket_UT.h"

#include "base/Error.h"
#include "comm/Errors.h"

namespace tarvex {

namespace {

constexpr std::int32_t kAcceptedIds[] = {0, 128, 65535};
constexpr std::int32_t kRefusedIds[] = {0x10000, -1};
constexpr std::int32_t kOtherId = 64;

I2CPacket Built(std::int32_t processorId, std::int32_t parameterId, std::uint8_t dataSize = 1,
                std::uint8_t widthCode = kWidthCodeOneByte)
{
    I2CPacket packet;
    packet.Init(processorId, parameterId, Bytes(256, 0xFF), dataSize, widthCode);
    return packet;
}

}

I2CPacket_UT::I2CPacket_UT(FailureFile failures)
    : UnitTestCases("I2CPacket_UT", "I2CPacket Unit Test", 4, std::move(failures))
{}

std::vector<UnitTestCases::Case> I2CPacket_UT::Cases()
{
    return {{"TestConstructors", [this] { TestConstructors(); }},
            {"TestSigProcRange", [this] { TestSigProcRange(); }},
            {"TestParamIDRange", [this] { TestParamIDRange(); }},
            {"TestWidthAndLength", [this] { TestWidthAndLength(); }}};
}

void I2CPacket_UT::TestConstructors()
{
    const I2CPacket built = Built(1105, 32);
    I2CPacket taken;
    CheckTrue(taken.CreatePacket(built.buffer(), static_cast<std::int16_t>(built.size())),
              "Failed to create packet from buffer");
    ComparePackets(built, taken);
}

void I2CPacket_UT::TestSigProcRange()
{
    for (const std::int32_t id : kRefusedIds)
        ExpectRefused(id, kOtherId, kErrProcessorId, "TestSigProcRange");
    for (const std::int32_t id : kAcceptedIds)
        VerifyProcessorID(Built(id, kOtherId), id);
}

void I2CPacket_UT::TestParamIDRange()
{
    for (const std::int32_t id : kRefusedIds)
        ExpectRefused(kOtherId, id, kErrParameterId, "TestParamIDRange");
    for (const std::int32_t id : kAcceptedIds)
        VerifyParameterID(Built(kOtherId, id), id);
}

void I2CPacket_UT::TestWidthAndLength()
{
    constexpr int kMostWords = 31;
    const std::string message = "I2CPacket_UT::TestWidthAndLength incorrect data size";
    for (int width = 0; width <= 7; ++width) {
        const auto code = static_cast<std::uint8_t>(width << 5);
        for (const int words : {0, 1, kMostWords}) {
            const auto dataSize = static_cast<std::uint8_t>(words * width);
            CheckTrue(Built(128, kOtherId, dataSize, code).dataSize() == dataSize, message);
        }
    }
}

void I2CPacket_UT::ComparePackets(const I2CPacket& p1, const I2CPacket& p2)
{
    const std::string prefix = "I2CPacket_UT::ComparePackets ";
    CheckTrue(p1.ProcessorID() == p2.ProcessorID(), prefix + "p1.ProcessorID = p2.ProcessorID");
    CheckTrue(p1.ParameterID() == p2.ParameterID(), prefix + "p1.ParameterID  = p2.ParameterID");
    CheckTrue(p1.dataSize() == p2.dataSize(), prefix + "p1.dataSize = p2.dataSize");
    CheckTrue(p1.size() == p2.size(), prefix + "p1.size = p2.size");
}

void I2CPacket_UT::VerifyProcessorID(const I2CPacket& packet, std::int32_t id)
{
    const std::string prefix = "I2CPacket_UT::VerifyProcessorID packet.ProcessorID ";
    CheckFalse(packet.ProcessorID() > 0xFFFF, prefix + "> &HFFFF.");
    CheckFalse(packet.ProcessorID() < 0, prefix + "< 0.");
    CheckTrue(packet.ProcessorID() == id, prefix + "= id.");
}

void I2CPacket_UT::VerifyParameterID(const I2CPacket& packet, std::int32_t id)
{
    const std::string prefix = "I2CPacket_UT::VerifyParameterID packet.ParameterID ";
    CheckFalse(packet.ParameterID() > 0xFFFF, prefix + "> &HFFFF.");
    CheckFalse(packet.ParameterID() < 0, prefix + "< 0.");
    CheckTrue(packet.ParameterID() == id, prefix + "= id.");
}

void I2CPacket_UT::ExpectRefused(std::int32_t processorId, std::int32_t parameterId, std::int32_t error,
                                 const std::string& caseName)
{
    std::int32_t raised = 0;
    try {
        Built(processorId, parameterId);
    } catch (const Error& caught) {
        raised = caught.Number();
    }
    CheckTrue(raised == error, "I2CPacket_UT::" + caseName + " unexpected error type caught.");
}

}
