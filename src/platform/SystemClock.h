#pragma once

#include "platform/IClock.h"

namespace tarvex {

/// The clock of the system, in its time zone.
class SystemClock : public IClock {
public:
    std::string NowText() override;
};

}
