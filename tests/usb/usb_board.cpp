#include "usb/Board.h"

#include <iostream>
#include <sstream>

/// A board by itself, plugged in from the start. Lines on standard input command it until they end: plug, unplug,
/// deaf (takes nothing), mute COUNT (so many requests get no answer); any other line heals it.
int main()
{
    tarvex::Board board;
    board.Plug();
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        tarvex::BoardFaults faults;
        words >> command >> faults.unanswered;
        faults.takesNothing = command == "deaf";
        if (command == "plug")
            board.Plug();
        else if (command == "unplug")
            board.Unplug();
        else
            board.Break(faults);
    }
}
