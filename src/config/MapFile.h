#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

inline constexpr std::int32_t kErrFileSyntax = static_cast<std::int32_t>(0x80040009U);
inline constexpr const char* kDataFileRoot = "TarvexData";
inline constexpr const char* kInitDeviceSource = "TarvexController::InitDevice";
inline constexpr const char* kReadRegistersSource = "TarvexController::ReadI2CRegisters";
inline constexpr const char* kReadPropertiesSource = "TarvexController::ReadI2CProperties";

/// The file that a register map is read from, as rules and error texts need it.
struct MapFile {
    std::string initFilePath; ///< init file in use, named by the init-file error whatever file is read
    std::string path;         ///< file that is read
    bool isDataFile = false;  ///< registers carry values in place of defaults
};

/// Raises the init-file error.
[[noreturn]] void RaiseInitFileError(const MapFile& file, const char* source);

/// A hexadecimal text of the file; anything else is the init-file error.
std::int32_t HexOf(std::string_view text, const MapFile& file, const char* source);

}
