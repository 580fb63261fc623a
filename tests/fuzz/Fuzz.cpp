#include "Fuzz.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

void tarvex::Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tarvex::Check({reinterpret_cast<const char*>(data), size});
    return 0;
}
