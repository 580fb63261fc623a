#include "ui/advanced/UI_RegisterItemRules.h"

#include "base/Numbers.h"
#include "model/BitConversions.h"
#include "model/RegisterObject.h"

#include <cmath>

namespace tarvex {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0x000000;

struct AccessLook {
    AccessFlag flag;
    BitLook look;
};

/// In the order of testing: a later match takes the colour over, a lock stays.
constexpr AccessLook kAccessLooks[] = {
    {AccessFlag::ReadOnly, {0x00E1B4, true, "Read only"}},
    {AccessFlag::WriteOnly, {0x800080, false, "Write only"}},
    {AccessFlag::Reserved, {0x808080, true, "Reserved"}},
    {AccessFlag::ReadWrite, {kWhite, false, "Read/write"}},
};

double Linear(std::uint32_t channel)
{
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(std::uint32_t colour)
{
    return 0.2126 * Linear(colour >> 16 & 0xFF) + 0.7152 * Linear(colour >> 8 & 0xFF) + 0.0722 * Linear(colour & 0xFF);
}

}

BitLook LookOfBit(std::int16_t flags)
{
    BitLook look{kBlack, false, ""};
    for (const AccessLook& access : kAccessLooks) {
        if (!HasFlag(flags, access.flag))
            continue;
        const bool locked = look.locked || access.look.locked;
        look = access.look;
        look.locked = locked;
    }
    return look;
}

std::uint32_t TextColourOn(std::uint32_t background)
{
    const double luminance = Luminance(background);
    const double contrastToWhite = 1.05 / (luminance + 0.05);
    const double contrastToBlack = (luminance + 0.05) / 0.05;
    return contrastToWhite > contrastToBlack ? kWhite : kBlack;
}

std::string BitTip(const std::string& prompt, std::string_view accessName)
{
    const bool both = !prompt.empty() && !accessName.empty();
    return (prompt + (both ? "\n" : "")).append(accessName);
}

std::optional<Bits> BitsOfHexText(std::string_view text)
{
    const auto value = TryParseHex(text);
    if (!value)
        return std::nullopt;
    const auto positive = static_cast<std::int16_t>(*value & 0x7FFF); // the sign is above the byte that counts
    return ByteToBits(IntToBytes(positive)[0]);
}

std::string HexTextOfDigits(std::string_view digits) { return ToHex(BitStringToByte(digits)); }

}
