#pragma once

#include "platform/IUserPrompts.h"
#include "ui/wizards/cendra/CendraTarget.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class SerialZorbus;

/// Finds the enclosure that the wizard is to work on: on the network, or a made-up one with the demo board. It connects
/// the link to it, tells the controller its address and reads which board sits in each slot.
class CendraDiscovery {
public:
    /// `helpUser` shows what to do when no enclosure answers, and answers false when the user gave up.
    CendraDiscovery(CendraTarget& target, std::function<bool(SerialZorbus&)> helpUser)
        : target_(target), helpUser_(std::move(helpUser))
    {}

    /// Makes the enclosure the one in use. Tries again as often as the user wants; ends the program with 7 when he
    /// gives up or the enclosure cannot be used, with 9 for a product without a demo.
    void Discover(const std::string& product);

private:
    bool TryDiscover(const std::string& product);
    bool OfferDemo(const std::string& product);
    bool SearchNetwork(SerialZorbus& link);
    std::string BrowseUntilFound(SerialZorbus& link);
    bool Connect(SerialZorbus& link, const std::string& path);
    std::vector<std::int32_t> ReadSlots(SerialZorbus& link);
    Answer AskAgain();
    [[noreturn]] void GiveUp(const std::string& reason);

    CendraTarget& target_;
    std::function<bool(SerialZorbus&)> helpUser_;
};

}
