#pragma once

#include "platform/IClock.h"

namespace tarvex {

/// A clock that stands at the text it is given.
class FakeClock : public IClock {
public:
    std::string NowText() override { return text; }

    std::string text = "2026-03-04 15:06:07";
};

}
