#include "support/ExpectError.h"
#include "ui/wizards/frame/BoardLoading.h"
#include "ui/wizards/frame/PulseWidth.h"
#include "ui/wizards/vexlon/VexlonColour.h"
#include "ui/wizards/vexlon/VexlonTiming.h"

#include <cmath>
#include <cstring>

namespace tarvex {

static ColourRegisters Registers(const ColourValues& v) { return {{{v[0], 0, 255}, {v[1], 0, 255}, {v[2], 0, 255}}}; }

TEST(VexlonTiming, EveryOfferedModeHasTheByteOfTheFormula)
{
    for (const char* size : kResolutionItems)
        for (const char* rate : kRefreshItems) {
            const double clock = std::stod(size) * std::stod(std::strchr(size, 'x') + 1) * std::stod(rate) * 1.3585e-6;
            const int range = (clock >= 45) + (clock >= 90) + (clock >= 150);
            const double current = range == 0   ? 1.5 + 0.167 * (clock - 22)
                                   : range == 1 ? 2.5 + 0.0714 * (clock - 44)
                                                : range + 0.5 + 0.023 * (clock - 70);
            EXPECT_EQ(VcoChargePumpByte(ParseResolution(size), static_cast<std::int16_t>(std::stoi(rate))),
                      range << 6 | static_cast<int>(std::lround(current)) << 3)
                << size << " at " << rate;
        }
}

TEST(VexlonTiming, ResolutionsAreSplitAndOverflowsRaised)
{
    const std::vector<std::pair<const char*, std::vector<std::int32_t>>> cases{
        {"1024x768", {0x53, 0x30, 0x04, 0x00, 0x03, 0x00}},
        {"1920x1080", {0x9C, 0x00, 0x07, 0x80, 0x04, 0x38}},
        {"3151x1080", {}}, // the divider would need a thirteenth bit
    };
    for (const auto& [size, expected] : cases) {
        const ResolutionPlan plan = PlanResolution(ParseResolution(size));
        std::vector<std::int32_t> values;
        for (const RegisterValue& write : plan.writes)
            values.push_back(write.value);
        EXPECT_EQ(values, expected) << size;
        EXPECT_EQ(plan.complete, !expected.empty());
    }
    EXPECT_EQ(VcoChargePumpByte({1600, 1200}, 60), 0xE8);
    ExpectError([] { VcoChargePumpByte({257, 257}, 60); }, 6);
    ExpectError([] { ParseResolution("1024"); }, 13);
}

TEST(VexlonColour, BrightnessMovesAllOffsetsWithinTheirLimits)
{
    EXPECT_EQ(PlanBrightness(0, Registers({10, 20, 30})), (ColourValues{0, 0, 10}));
    EXPECT_EQ(PlanBrightness(240, Registers({200, 240, 250})), (ColourValues{210, 250, 254}));
    EXPECT_EQ(PlanBrightness(1, Registers({1, 1, 0})), (ColourValues{2, 2, 1})); // the mean is truncated
}

TEST(VexlonColour, ContrastAsksOnceForEachGainThatWouldLoseItsDifference)
{
    using enum GainAnswer;
    using Said = std::vector<GainAnswer>; // to the questions in their order
    using Planned = std::optional<ColourValues>;
    const std::vector<std::tuple<ColourValues, std::int32_t, GainAnswers, Said, GainAnswers, Planned>> cases{
        {{100, 110, 121}, 120, {}, {}, {}, ColourValues{110, 120, 131}}, // 110.33 rounds to 110
        {{100, 100, 250}, 160, {}, {No}, {NotAsked, NotAsked, No}, std::nullopt},
        {{100, 100, 250}, 161, {NotAsked, NotAsked, No}, {}, {NotAsked, NotAsked, No}, std::nullopt},
        {{100, 100, 250}, 152, {NotAsked, NotAsked, No}, {}, {}, ColourValues{102, 102, 252}},
        {{100, 100, 250}, 160, {}, {Yes}, {NotAsked, NotAsked, Yes}, ColourValues{110, 110, 254}},
        {{5, 250, 6}, 60, {}, {Yes, Yes}, {Yes, NotAsked, Yes}, ColourValues{0, 223, 0}},
        {{100, 100, 100}, 254, {No, No, No}, {}, {}, ColourValues{254, 254, 254}},
        {{10, 20, 30}, 0, {}, {Yes}, {Yes, NotAsked, NotAsked}, ColourValues{0, 0, 0}},
    };
    for (const auto& [gains, target, before, said, after, planned] : cases) {
        GainAnswers answers = before;
        std::size_t asked = 0;
        const auto ask = [&asked, &answered = said](std::size_t) { return answered.at(asked++); };
        EXPECT_EQ(PlanContrast(target, Registers(gains), answers, ask), planned) << target;
        EXPECT_EQ(asked, said.size()) << target;
        EXPECT_EQ(answers, after) << target;
    }
}

TEST(PulseWidth, PulseWidthAndProbeStayInRange)
{
    EXPECT_EQ(NextPulseWidth(247, 255, Step::Up), 255);
    EXPECT_EQ(NextPulseWidth(5, 255, Step::Down), 0);
    EXPECT_EQ(NextPulseWidth(0, 255, Step::Down), std::nullopt);
    for (const auto& [value, probe] : std::vector<std::pair<int, int>>{{0, 1}, {253, 254}, {254, 253}, {255, 254}})
        EXPECT_EQ(ProbeValue(value, 255), probe);
}

}
