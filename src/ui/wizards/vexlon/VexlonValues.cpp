#include "ui/wizards/vexlon/VexlonValues.h"

#include "model/RegisterObject.h"

namespace tarvex {

namespace {

constexpr std::array<const char*, 3> kOffsets{"Red Offset", "Green Offset", "Blue Offset"};
constexpr std::array<const char*, 3> kGains{"Red Gain", "Green Gain", "Blue Gain"};
constexpr std::int32_t kGainQuestionTopic = 524288;
constexpr ElementBounds kBoundsOfUnknown{100, 100};

}

ElementBounds VexlonValues::Bounds(const std::string& element) const
{
    const VexlonElement* known = FindVexlonElement(element);
    if (!known)
        return kBoundsOfUnknown;
    const RegisterObject& first = board_.Register(known->first);
    return BoundsOf(*known, first.MinValue(), first.MaxValue());
}

std::int32_t VexlonValues::Read(const std::string& element) const
{
    const VexlonElement* known = FindVexlonElement(element);
    if (!known)
        return 0;
    if (known->mapping == Mapping::Brightness)
        return BrightnessOf(ReadOffsets());
    if (known->mapping == Mapping::Contrast)
        return ContrastOf(ReadGains());
    const std::int32_t first = board_.Read(known->first);
    return ValueFromRegisters(*known, first, known->second ? board_.Read(known->second) : 0);
}

bool VexlonValues::Write(const std::string& element, std::int32_t value, const std::string& target)
{
    const VexlonElement* known = FindVexlonElement(element);
    if (!known)
        return false;
    if (known->mapping == Mapping::Brightness)
        return WriteBrightness(value);
    if (known->mapping == Mapping::Contrast)
        return WriteContrast(value, answers_[target]);
    const auto writes = WritesOf(*known, value);
    board_.Write(writes);
    return !writes.empty();
}

ColourRegisters VexlonValues::Colours(const ColourNames& names) const
{
    ColourRegisters colours{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const RegisterObject& colour = board_.Register(names[i]);
        colours[i] = {colour.value(), colour.MinValue(), colour.MaxValue()};
    }
    return colours;
}

void VexlonValues::WriteColours(const ColourNames& names, const ColourValues& values) const
{
    for (std::size_t i = 0; i < names.size(); ++i)
        board_.Write(names[i], values[i]);
}

ColourRegisters VexlonValues::ReadOffsets() const
{
    for (const char* name : kOffsets)
        board_.Read(name);
    return Colours(kOffsets);
}

/// The gains as they stand, since they are the elements beside this one; but not what was edited and not loaded.
ColourRegisters VexlonValues::ReadGains() const
{
    for (const char* name : kGains)
        if (board_.Register(name).IsDirty())
            board_.Read(name);
    return Colours(kGains);
}

bool VexlonValues::WriteBrightness(std::int32_t value) const
{
    ColourRegisters offsets{};
    const auto read = [&] { offsets = ReadOffsets(); };
    if (!board_.Host().Read("Vexlon_Wizard::GetBrightness", "Brightness", read))
        return false;
    WriteColours(kOffsets, PlanBrightness(value, offsets));
    return true;
}

bool VexlonValues::WriteContrast(std::int32_t value, GainAnswers& answers) const
{
    ColourRegisters gains{};
    const auto read = [&] { gains = ReadGains(); };
    if (!board_.Host().Read("Vexlon_Wizard::GetContrast", "Contrast", read))
        return false;
    const auto ask = [this](std::size_t i) { return AskToLoseDifference(board_.Register(kGains[i]).Name()); };
    const auto planned = PlanContrast(value, gains, answers, ask);
    if (planned)
        WriteColours(kGains, *planned);
    return planned.has_value();
}

GainAnswer VexlonValues::AskToLoseDifference(const std::string& gain) const
{
    const MessageBoxRequest box{"This contrast setting will cause the current gain differential in " + gain +
                                    " to be lost. Continue?",
                                "Continue setting Gain?", Buttons::YesNo, Icon::Question, kGainQuestionTopic};
    const Answer answer = board_.Host().Services().prompts.ShowMessage(box);
    return answer == Answer::Yes ? GainAnswer::Yes : GainAnswer::No;
}

}
