#include "usb/Board.h"

#include <iostream>
#include <sstream>

/// A board by itself, plugged in from the start; lines on standard input command it until they end:
/// plug, unplug, heal, deaf, mute COUNT, wrong COUNT, set PROCESSOR PARAMETER VALUE (hexadecimal).
int main()
{
    tarvex::Board board;
    board.Plug();
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        tarvex::BoardFaults faults;
        unsigned processor = 0;
        unsigned parameter = 0;
        unsigned value = 0;
        if (command == "plug")
            board.Plug();
        else if (command == "unplug")
            board.Unplug();
        else if (command == "set" && words >> std::hex >> processor >> parameter >> value)
            board.Set({static_cast<std::uint16_t>(processor), static_cast<std::uint16_t>(parameter)},
                      {static_cast<std::uint8_t>(value)});
        else {
            faults.takesNothing = command == "deaf";
            if (command == "mute")
                words >> faults.unanswered;
            if (command == "wrong")
                words >> faults.wrongAnswers;
            board.Break(faults);
        }
    }
}
