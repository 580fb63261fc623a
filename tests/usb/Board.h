#pragma once

#include "base/Types.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvex {

/// Looks again and again until the condition holds; false when it does not within 5 seconds.
bool WaitUntil(const std::function<bool()>& condition);

/// Processor and parameter of a register.
using RegisterAddress = std::pair<std::uint16_t, std::uint16_t>;

/// What is wrong with a board; nothing at first.
struct BoardFaults {
    int unanswered = 0;      ///< so many requests get no answer
    bool holdAnswer = false; ///< the next answer waits for ReleaseAnswer
    int wrongAnswers = 0;    ///< so many answers of another register come before the right one
    int lengthByte = -1;     ///< stands in every answer in place of the right one
    bool takesNothing = false;
    int slowness = 0; ///< so many milliseconds each report takes
    std::set<RegisterAddress> readOnly{};
};

struct BoardSetup {
    int socket = 0; ///< 0 or 1
    std::uint16_t productId = 0x0A51;
    /// With ids, 1 goes to the board and 2 both ways; without, the board takes every report for a read request.
    bool reportIds = true;
    std::uint8_t outputBytes = 63; ///< without the id; 0 = no such report
    std::uint8_t inputBytes = 63;
};

/// A board: a USB gadget on the kernel's dummy controller, and the firmware behind it, which answers I2C packets from
/// its register memory on a thread of its own. It is made unplugged and removed when it is destroyed.
class Board {
public:
    /// Any failure is a std::system_error.
    explicit Board(BoardSetup setup = {});
    ~Board();
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /// Returns when the system has the board's node, or at once.
    void Plug(bool waits = true);
    /// Returns when the system's node is gone.
    void Unplug();
    /// The node in which programs see the board; empty when there is none.
    std::string Node() const;

    void Break(BoardFaults faults);
    /// Sends the answer that was held back; the system has it when this returns.
    void ReleaseAnswer();
    void Set(RegisterAddress address, Bytes value);
    Bytes Get(RegisterAddress address);
    /// Every report that arrived since the last call.
    std::vector<Bytes> TakeReceived();
    std::size_t ReceivedCount();

private:
    void WriteAttribute(const std::string& name, const std::string& value) const;
    void Serve();
    int TakeReport();
    void Handle(const Bytes& report);
    void Answer(const Bytes& request);
    void Send(const Bytes& answer) const;

    const BoardSetup setup_;
    const std::string folder_;
    int endpoint_ = -1;
    std::thread firmware_;
    std::atomic<bool> plugged_ = false;
    std::mutex mutex_; ///< guards all below
    BoardFaults faults_;
    Bytes held_;
    std::map<RegisterAddress, Bytes> registers_;
    std::vector<Bytes> received_;
};

}
