#pragma once

#include "comm/I2CPacket.h"
#include "shell/UnitTestCases.h"

namespace tarvex {

/// Tests the register packets: their ids, widths and lengths, and the way through a byte buffer and back.
class I2CPacket_UT : public UnitTestCases {
public:
    explicit I2CPacket_UT(FailureFile failures);

private:
    std::vector<Case> Cases() override;

    void TestConstructors();
    void TestSigProcRange();
    void TestParamIDRange();
    void TestWidthAndLength();

    void ComparePackets(const I2CPacket& p1, const I2CPacket& p2);
    void VerifyProcessorID(const I2CPacket& packet, std::int32_t id);
    void VerifyParameterID(const I2CPacket& packet, std::int32_t id);
    /// Whether building the packet with an id outside the range fails with this error.
    void ExpectRefused(std::int32_t processorId, std::int32_t parameterId, std::int32_t error,
                       const std::string& caseName);
};

}
