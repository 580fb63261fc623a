#include "support/ExpectError.h"
#include "ui/wizards/vexlon/VexlonColour.h"
#include "ui/wizards/vexlon/VexlonSteps.h"
#include "ui/wizards/vexlon/VexlonTiming.h"

#include <cmath>

namespace tarvex {

static ColourRegisters Registers(const ColourValues& v) { return {{{v[0], 0, 255}, {v[1], 0, 255}, {v[2], 0, 255}}}; }

TEST(VexlonTiming, EveryOfferedModeHasTheByteOfTheFormula)
{
    for (const char* size : kResolutionItems) {
        for (const char* rate : kRefreshItems) {
            const double width = std::stod(size);
            const double height = std::stod(std::string(size).substr(std::string(size).find('x') + 1));
            const double clock = height * std::stod(rate) * width * 1.045 * 1.3 / 1e6;
            const double current = clock < 45    ? 1.5 + 0.167 * (clock - 22)
                                   : clock < 90  ? 2.5 + 0.0714 * (clock - 44)
                                   : clock < 150 ? 2.5 + 0.023 * (clock - 70)
                                                 : 3.5 + 0.023 * (clock - 70);
            const int range = (clock >= 45) + (clock >= 90) + (clock >= 150);
            EXPECT_EQ(VcoChargePumpByte(ParseResolution(size), static_cast<std::int16_t>(std::stoi(rate))),
                      range << 6 | static_cast<int>(std::lround(current)) << 3)
                << size << " at " << rate;
        }
    }
}

TEST(VexlonTiming, ResolutionsAreSplitAndOverflowsRaised)
{
    const std::vector<std::pair<const char*, std::vector<std::int32_t>>> cases{
        {"1024x768", {0x53, 0x30, 0x04, 0x00, 0x03, 0x00}},
        {"1920x1080", {0x9C, 0x00, 0x07, 0x80, 0x04, 0x38}},
        {"3150x1080", {0xFF, 0xF0, 0x0C, 0x4E, 0x04, 0x38}},
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
    ExpectError([] { VcoChargePumpByte({0, 0}, 60); }, 6);
    ExpectError([] { VcoChargePumpByte({257, 257}, 60); }, 6);
    ExpectError([] { VcoChargePumpByte({2047, 2047}, 255); }, 6); // a code above 31 leaves the byte
    ExpectError([] { ParseResolution("1024"); }, 13);
    ExpectError([] { ParseResolution("40000x1"); }, 6);
}

TEST(VexlonColour, BrightnessMovesAllOffsetsWithinTheirLimits)
{
    const std::vector<std::tuple<ColourValues, std::int32_t, ColourValues>> cases{
        {{10, 20, 30}, 25, {15, 25, 35}},
        {{10, 20, 30}, 0, {0, 0, 10}},
        {{200, 240, 250}, 240, {210, 250, 254}},
        {{1, 1, 0}, 1, {2, 2, 1}}, // the mean is truncated
    };
    for (const auto& [offsets, target, planned] : cases)
        EXPECT_EQ(PlanBrightness(target, Registers(offsets)), planned) << target;
}

TEST(VexlonColour, ContrastAsksOnceForEachGainThatWouldLoseItsDifference)
{
    constexpr GainAnswer kNotAsked = GainAnswer::NotAsked, kYes = GainAnswer::Yes, kNo = GainAnswer::No;
    const struct {
        ColourValues gains;
        std::int32_t target;
        GainAnswers before;
        std::vector<GainAnswer> said; ///< to the questions in their order
        GainAnswers after;
        std::optional<ColourValues> planned;
    } cases[] = {
        {{100, 110, 121}, 120, {}, {}, {}, ColourValues{110, 120, 131}}, // 110.33 rounds to 110
        {{100, 100, 250}, 160, {}, {kNo}, {kNotAsked, kNotAsked, kNo}, std::nullopt},
        {{100, 100, 250}, 161, {kNotAsked, kNotAsked, kNo}, {}, {kNotAsked, kNotAsked, kNo}, std::nullopt},
        {{100, 100, 250}, 152, {kNotAsked, kNotAsked, kNo}, {}, {}, ColourValues{102, 102, 252}},
        {{100, 100, 250}, 160, {}, {kYes}, {kNotAsked, kNotAsked, kYes}, ColourValues{110, 110, 254}},
        {{5, 250, 6}, 60, {}, {kYes, kYes}, {kYes, kNotAsked, kYes}, ColourValues{0, 223, 0}},
        {{5, 250, 6}, 60, {}, {kYes, kNo}, {kYes, kNotAsked, kNo}, std::nullopt},
        {{100, 100, 100}, 254, {kNo, kNo, kNo}, {}, {}, ColourValues{254, 254, 254}},
        {{10, 20, 30}, 0, {}, {kYes}, {kYes, kNotAsked, kNotAsked}, ColourValues{0, 0, 0}},
        {{250, 252, 254}, 254, {}, {kYes}, {kNotAsked, kNotAsked, kYes}, ColourValues{254, 254, 254}},
    };
    for (const auto& each : cases) {
        GainAnswers answers = each.before;
        std::size_t asked = 0;
        const auto ask = [&](std::size_t) { return asked < each.said.size() ? each.said[asked++] : (++asked, kNo); };
        EXPECT_EQ(PlanContrast(each.target, Registers(each.gains), answers, ask), each.planned) << each.target;
        EXPECT_EQ(asked, each.said.size()) << each.target;
        EXPECT_EQ(answers, each.after) << each.target;
    }
}

TEST(VexlonSteps, PulseWidthAndProbeStayInRange)
{
    const std::vector<std::tuple<std::int32_t, Step, std::optional<std::int32_t>>> widths{
        {247, Step::Up, 255}, {245, Step::Up, 255}, {244, Step::Up, 254}, {255, Step::Up, std::nullopt},
        {5, Step::Down, 0},   {10, Step::Down, 0},  {11, Step::Down, 1},  {0, Step::Down, std::nullopt}};
    for (const auto& [width, step, next] : widths)
        EXPECT_EQ(NextPulseWidth(width, step), next) << width;
    for (const auto& [value, probe] : std::vector<std::pair<int, int>>{{0, 1}, {253, 254}, {254, 253}, {255, 254}})
        EXPECT_EQ(ProbeValue(value, 255), probe);
}

}
