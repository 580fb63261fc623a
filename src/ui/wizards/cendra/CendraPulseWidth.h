#pragma once

namespace tarvex {

class CendraTarget;

/// The commands that widen and narrow the horizontal sync pulse of the current connector, ten pixels at a time; only
/// while that setting is being adjusted.
class CendraPulseWidth {
public:
    explicit CendraPulseWidth(CendraTarget& target) : target_(target) {}

    void Increase() { Step(kStep); }
    void Decrease() { Step(-kStep); }

private:
    static constexpr int kStep = 10;

    void Step(int step);

    CendraTarget& target_;
};

}
