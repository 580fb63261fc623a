#include "Fuzz.h"

#include "comm/HIDDevice.h"
#include "shell/PacketLog.h"
#include "support/ClosedPrompts.h"
#include "support/FakeClock.h"
#include "support/FakeFileSystem.h"
#include "support/FakeHidServices.h"

namespace tarvex {

namespace {

void CheckPacket(const Bytes& bytes, std::int16_t size)
{
    I2CPacket packet;
    const bool isTaken = packet.CreatePacket(bytes, size);
    Require(isTaken == (size >= 5 && bytes.size() >= 5), "a packet has a header");
    Require(static_cast<std::size_t>(packet.size()) <= std::max(bytes.size(), std::size_t{4}), "no byte is made up");
    const bool hasData = packet.dataSize() > 0 && packet.dataSize() + 5 <= packet.size();
    try {
        Require(packet.data().size() == static_cast<std::size_t>(packet.dataSize()), "data are whole");
        Require(hasData, "data are within the packet");
    } catch (const Error& error) {
        Require(!hasData && error.Number() == 703, "only data that are not there are refused");
    }
}

/// Reads with any lengths of reports from a board that answers with anything: each answer behind its length.
void CheckReading(Bytes input)
{
    input.resize(std::max(input.size(), std::size_t{4}));
    FakeHidServices services;
    services.boards[0]->lengths = {input[0], input[1]};
    services.boards[0]->tamper = [&](std::deque<Bytes>& reports) {
        reports.resize(input[3] % 2); // its own answer comes first, or not at all
        for (auto at = input.begin() + 4; at != input.end();) {
            const std::ptrdiff_t wanted = *at++;
            const auto length = std::min(wanted, input.end() - at);
            reports.emplace_back(at, at + length);
            at += length;
        }
    };
    FakeFileSystem files;
    FakeClock clock;
    PacketLog log(files, clock);
    log.OpenPacketLog("", 1);
    ClosedPrompts prompts;
    HIDDevice device(services, log, prompts);
    const bool isUsable = input[0] != 0 && input[1] != 0;
    Require(device.connect(0xA100, 0x12C5) == (isUsable ? 1 : 0), "a board without reports is refused");
    std::int16_t count = input[2];
    try {
        const Bytes bytes = device.ReadFrom(0x451, 0x20, count, kNoAspi);
        Require(count >= 0 && static_cast<std::size_t>(count) <= bytes.size(), "the count is within the bytes");
    } catch (const Error& error) {
        Require(error.Number() == (isUsable ? input[2] > 31 ? 702 : 302 : 303), "the error is the stated one");
    }
    Require(services.boards[0]->exchangesUnderWay == 0, "an exchange ends");
}

}

void Check(std::string_view input)
{
    const Bytes bytes(input.begin(), input.end());
    CheckPacket(bytes, static_cast<std::int16_t>(bytes.size()));
    CheckPacket(bytes, static_cast<std::int16_t>(bytes.empty() ? 0 : bytes[0]));
    CheckReading(bytes);
}

}
