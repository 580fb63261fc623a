#include "Fuzz.h"

#include "base/Error.h"
#include "model/BitConversions.h"

#include <algorithm>

namespace tarvex {

void Check(std::string_view text)
{
    const bool isClean = text.find_first_not_of("0123456789,:") == std::string_view::npos;
    Bits bits;
    try {
        const std::int16_t marks = ParseBitString(text, bits);
        Require(isClean, "a foreign character is refused");
        Require(bits.size() >= 8, "there are at least eight bits");
        Require(std::count(bits.begin(), bits.end(), true) <= marks, "every bit that is set was marked");
        for (const char letter : text)
            if (letter >= '0' && letter <= '9' && text.find(':') == std::string_view::npos)
                Require(bits[static_cast<std::size_t>(letter - '0')], "every position named is set");
    } catch (const Error& error) {
        Require(isClean ? error.Number() == kErrOverflow : error.Number() == ObjectError(100) || text.size() > 3000,
                "the error is the stated one");
    }
}

}
