#include "platform/hid/HidEnumeration.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <hidapi.h>

namespace tarvex {

namespace {

using Folder = std::filesystem::path;

/// What the system says of a device; empty when the device has none or is gone meanwhile.
std::string Attribute(const Folder& device, const char* name)
{
    std::ifstream file(device / name);
    std::string text;
    std::getline(file, text);
    return text;
}

std::uint16_t HexAttribute(const Folder& device, const char* name)
{
    return static_cast<std::uint16_t>(std::strtoul(Attribute(device, name).c_str(), nullptr, 16));
}

/// The USB device to which a HID device belongs; empty when it is none, or gone meanwhile.
Folder UsbDeviceOf(const Folder& hidDevice)
{
    std::error_code gone;
    for (Folder each = canonical(hidDevice, gone); !gone && each.has_relative_path(); each = each.parent_path())
        if (exists(each / "idVendor", gone))
            return each;
    return {};
}

}

// By the system's own files and not by the HID library: its enumeration crashes when a device goes while it runs.
std::optional<std::vector<HidInterface>> PresentHidInterfaces()
{
    if (hid_init() != 0)
        return {};
    std::vector<HidInterface> found;
    std::error_code failed; // without any HID device there is no such folder
    std::filesystem::directory_iterator node("/sys/class/hidraw", failed);
    for (; !failed && node != end(node); node.increment(failed)) {
        const Folder device = UsbDeviceOf(node->path() / "device");
        if (!device.empty())
            found.push_back({"/dev/" + node->path().filename().string(),
                             {HexAttribute(device, "idVendor"), HexAttribute(device, "idProduct"),
                              HexAttribute(device, "bcdDevice")},
                             Attribute(device, "product")});
    }
    if (failed && failed != std::errc::no_such_file_or_directory)
        return {};
    return found;
}

}
