#include "benchmarks/Report.h"
#include "comm/HIDDevice.h"
#include "platform/SystemClock.h"
#include "platform/files/PosixFileSystem.h"
#include "shell/PacketLog.h"
#include "support/ClosedPrompts.h"
#include "support/FakeHidServices.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>

namespace tarvex::bench {

namespace {

constexpr int kReads = 2'000;
constexpr double kMostMicroseconds = 20;

void Require(bool holds)
{
    if (!holds)
        throw std::runtime_error("the board did not answer");
}

/// Microseconds of one read, mean of many.
template <class Read> double TimeOfRead(const Read& read)
{
    return 1000 / double{kReads} * Time([&] {
               for (int i = 0; i < kReads; ++i)
                   read();
           });
}

/// What a read costs above the calls that it makes of the HID services, with the packet log open on a real file.
bool Measure()
{
    const TemporaryFolder folder;
    PosixFileSystem files;
    SystemClock clock;
    PacketLog log(files, clock);
    log.OpenPacketLog(folder.File("log"), 1);
    ClosedPrompts prompts;
    FakeHidServices services;
    HIDDevice device(services, log, prompts);
    const HidAttributes identity = services.boards[0]->known.attributes;
    Require(log.IsPacketLogging() && device.connect(identity.productId, identity.vendorId) == 1);

    const auto board = services.Open(services.boards[0]->known.path);
    Bytes request{2, 0x51, 4, 0x20, 0, 0x21, 0};
    request.resize(services.boards[0]->lengths.output);
    std::vector<double> above;
    for (int round = 0; round < kRounds; ++round) {
        const double bare = TimeOfRead([&] {
            Require(!board->Exchange(request, request.size(), std::chrono::seconds(1)).answer.empty());
            board->EndExchange();
        });
        const double whole = TimeOfRead([&] {
            std::int16_t count = 1;
            device.ReadFrom(0x0451, 0x20, count, kNoAspi);
            Require(count == 1);
        });
        above.push_back(whole - bare);
    }
    return Report("read of a register above the HID calls, packet log open", above, kMostMicroseconds, "us");
}

}

}

int main() { return tarvex::bench::Measure() ? EXIT_SUCCESS : EXIT_FAILURE; }
