#pragma once

#include "shell/UnitTestCases.h"

namespace tarvex {

/// Tests the bitsets on a register of eight bits: which bits a bit string selects, and what is read through them.
class Bitset_UT : public UnitTestCases {
public:
    explicit Bitset_UT(FailureFile failures);

private:
    struct Sample;

    std::vector<Case> Cases() override;

    void TestConstructors();
    void TestBitstrings();
    void Verify(const Sample& sample, bool everyBit);
};

}
