#include "config/MapFile.h"

#include "base/Error.h"
#include "base/Numbers.h"

namespace tarvex {

void RaiseInitFileError(const MapFile& file, const char* source)
{
    Raise(kErrFileSyntax, source, "Invalid syntax in initialization file " + file.initFilePath);
}

std::int32_t HexOf(std::string_view text, const MapFile& file, const char* source)
{
    const auto value = TryParseHex(text);
    if (!value)
        RaiseInitFileError(file, source);
    return *value;
}

}
