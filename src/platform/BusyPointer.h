#pragma once

#include "platform/IUserPrompts.h"

namespace tarvex {

/// The hourglass pointer while this lives.
class BusyPointer {
public:
    explicit BusyPointer(IUserPrompts& prompts) : prompts_(prompts) { prompts_.SetBusyPointer(true); }
    ~BusyPointer() { prompts_.SetBusyPointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    IUserPrompts& prompts_;
};

}
