#pragma once

#include "ui/wizards/frame/PulseWidth.h"

namespace tarvex {

class CendraTarget;

/// The commands that widen and narrow the horizontal sync pulse of the current connector, ten pixels at a time; only
/// while that setting is being adjusted.
class CendraPulseWidth {
public:
    explicit CendraPulseWidth(CendraTarget& target) : target_(target) {}

    void Increase() { Move(Step::Up); }
    void Decrease() { Move(Step::Down); }

private:
    void Move(Step step);

    CendraTarget& target_;
};

}
