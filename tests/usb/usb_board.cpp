#include "usb/Board.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

constexpr const char* kWrites = "/run/run/writes"; // what the driven program's system sees as /run/writes
constexpr std::size_t kWriteSize = 7;              // with one byte of data

/// Every byte that was written to a register since the last call, a line each: processor, parameter, byte.
void TellWrites(tarvex::Board& board)
{
    std::ofstream file(std::string(kWrites) + ".new");
    for (const auto& report : board.TakeReceived())
        if (report.size() >= kWriteSize && report[0] == 1)
            file << std::hex << std::uppercase << (report[1] | report[2] << 8) << ' ' << (report[3] | report[4] << 8)
                 << ' ' << unsigned{report[6]} << '\n';
    file.close();
    std::filesystem::rename(std::string(kWrites) + ".new", kWrites);
}

void Set(tarvex::Board& board, std::istream& words)
{
    std::uint16_t processor = 0;
    std::uint16_t parameter = 0;
    unsigned value = 0;
    words >> std::hex >> processor >> parameter >> value;
    board.Set({processor, parameter}, {static_cast<std::uint8_t>(value)});
}

tarvex::BoardFaults FaultsOf(const std::string& command, std::istream& words)
{
    tarvex::BoardFaults faults;
    faults.takesNothing = command == "deaf";
    if (command == "slow")
        words >> faults.slowness;
    else
        words >> faults.unanswered;
    return faults;
}

}

/// A board by itself, plugged in from the start. Lines on standard input command it until they end: plug, unplug, set
/// PROCESSOR PARAMETER BYTE, writes (see TellWrites), deaf (takes nothing), mute COUNT (so many requests get no
/// answer), slow MILLISECONDS (for each report); any other line heals it.
int main()
{
    tarvex::Board board;
    board.Plug();
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        if (command == "plug")
            board.Plug();
        else if (command == "unplug")
            board.Unplug();
        else if (command == "set")
            Set(board, words);
        else if (command == "writes")
            TellWrites(board);
        else
            board.Break(FaultsOf(command, words));
    }
}
