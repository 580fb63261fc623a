#include "platform/SystemClock.h"

#include <array>
#include <ctime>

namespace tarvex {

std::string SystemClock::NowText()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts)};
}

}
