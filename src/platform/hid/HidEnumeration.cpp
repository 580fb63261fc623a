#include "platform/hid/HidEnumeration.h"

#include <algorithm>
#include <hidapi.h>
#include <string_view>

namespace tarvex {

namespace {

/// Not by the library's conversion: that one depends on the locale.
std::string Utf8(std::wstring_view text)
{
    std::string result;
    for (const wchar_t letter : text) {
        const auto code = static_cast<char32_t>(letter);
        const int following = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr std::uint8_t kFirst[] = {0, 0xC0, 0xE0, 0xF0};
        result += static_cast<char>(kFirst[following] | (code >> (6 * following)));
        for (int index = following - 1; index >= 0; --index)
            result += static_cast<char>(0x80 | ((code >> (6 * index)) & 0x3F));
    }
    return result;
}

HidInterface InterfaceOf(const hid_device_info& info)
{
    return {info.path,
            {info.vendor_id, info.product_id, info.release_number},
            Utf8(info.product_string ? info.product_string : L"")};
}

}

std::optional<std::vector<HidInterface>> PresentHidInterfaces()
{
    if (hid_init() != 0)
        return {};
    std::vector<HidInterface> found;
    const std::unique_ptr<hid_device_info, decltype(&hid_free_enumeration)> list(hid_enumerate(0, 0),
                                                                                 hid_free_enumeration);
    for (const auto* info = list.get(); info; info = info->next) {
        const auto sameNode = [info](const HidInterface& other) { return other.path == info->path; };
        if (info->path && std::none_of(found.begin(), found.end(), sameNode)) // it comes once for each of its uses
            found.push_back(InterfaceOf(*info));
    }
    return found;
}

}
