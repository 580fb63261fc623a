#include "shell/Bitset_UT.h"

#include "model/Bitset.h"
#include "model/RegisterObject.h"

#include <utility>

namespace tarvex {

struct Bitset_UT::Sample {
    std::string name;
    std::string bitString;
    std::vector<std::int16_t> positions;
    std::vector<std::pair<std::int32_t, std::int16_t>> values; ///< of the register, and of the bitset then
};

namespace {

constexpr const char* kRegisterName = "TestReg";
constexpr std::int16_t kRegisterBits = 8;

/// Bit p carries the flags 2^p.
std::shared_ptr<RegisterObject> MakeRegister()
{
    auto made = std::make_shared<RegisterObject>();
    made->Init(0, 0, 0, kRegisterBits, kRegisterName, "");
    for (std::int16_t bit = 0; bit < kRegisterBits; ++bit)
        made->SetBitFlags(bit, static_cast<std::int16_t>(1 << bit));
    return made;
}

}

Bitset_UT::Bitset_UT(FailureFile failures) : UnitTestCases("Bitset_UT", "Bitset Unit Test", 3, std::move(failures)) {}

std::vector<UnitTestCases::Case> Bitset_UT::Cases()
{
    return {{"TestConstructors", [this] { TestConstructors(); }},
            {"TestBitstrings", [this] { TestBitstrings(); }, "TestBitstring"}};
}

void Bitset_UT::TestConstructors()
{
    Verify({"fullBS", "0:7", {0, 1, 2, 3, 4, 5, 6, 7}, {{255, 255}, {0, 0}, {128, 128}}}, false);
}

void Bitset_UT::TestBitstrings()
{
    const Sample samples[] = {
        {"singleBS", "3", {3}, {{8, 8}, {7, 0}, {255, 8}}},
        {"fullColonBS", "0:7", {0, 1, 2, 3, 4, 5, 6, 7}, {{255, 255}, {0, 0}, {128, 128}}},
        {"fullCommaBS", "0,1,2,3,4,5,6,7", {0, 1, 2, 3, 4, 5, 6, 7}, {{255, 255}, {0, 0}, {128, 128}}},
        {"partialColonBS", "2:4", {2, 3, 4}, {{255, 28}, {15, 12}, {248, 24}}},
        {"partialCommaBS", "2,3,4", {2, 3, 4}, {{255, 28}, {15, 12}, {248, 24}}},
        {"discontiguousCommaBS", "1,2,5,6,7", {1, 2, 5, 6, 7}, {{255, 230}, {22, 6}, {163, 162}}},
        {"discontiguousColonBS", "0:2,5:7", {0, 1, 2, 5, 6, 7}, {{255, 231}, {175, 167}, {26, 2}}},
        {"mixedBitstringBS", "1,4:7", {1, 4, 5, 6, 7}, {{255, 242}, {196, 192}, {54, 50}}},
    };
    for (const Sample& sample : samples)
        Verify(sample, true);
}

void Bitset_UT::Verify(const Sample& sample, bool everyBit)
{
    const auto parent = MakeRegister();
    Bitset bitset;
    bitset.Init(sample.name, parent, sample.bitString);
    const std::string prefix = "Bitset_UT::TestConstructors " + sample.name;
    const auto count = static_cast<std::int16_t>(sample.positions.size());
    CheckTrue(bitset.Count() == count, prefix + ".count = " + std::to_string(count));
    CheckTrue(bitset.Name() == sample.name, prefix + " bs.Name = " + sample.name);
    CheckTrue(bitset.ParentRegister() == kRegisterName, prefix + ".ParentRegister = " + kRegisterName);
    const std::string valuePrefix = prefix + ".GetBitValue(";
    const std::string flagsPrefix = prefix + ".GetBitFlags(";
    for (const auto& [registerValue, value] : sample.values) {
        parent->value(registerValue);
        CheckTrue(bitset.GetValue() == value, prefix + ".GetValue() = " + std::to_string(value));
        for (std::int16_t i = 0; everyBit && i < count; ++i) {
            const std::int16_t position = sample.positions[static_cast<std::size_t>(i)];
            const bool isSet = (registerValue >> position & 1) != 0;
            const std::string suffix = std::to_string(i) + (isSet ? ") = True" : ") = False");
            CheckTrue(bitset.GetBitValue(i) == isSet, valuePrefix + suffix);
            const std::string flags = std::to_string(i) + ") = 2 ^ " + std::to_string(position);
            CheckTrue(bitset.GetBitFlags(i) == 1 << position, flagsPrefix + flags);
        }
    }
}

}
