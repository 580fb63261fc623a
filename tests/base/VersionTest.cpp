#include "base/Version.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(Version, ComparesPartByPart)
{
    const struct {
        const char* version;
        const char* minimum;
        bool atLeast;
    } cases[] = {{"2.4.0", "2.4.0", true},  {"2.10.0", "2.9.9", true}, {"2.3.9", "2.4.0", false},
                 {"2", "2.0.0", true},      {"2.4", "2.4.1", false},   {"3.0", "2.9.9", true},
                 {"", "0.0.0", false},      {"2.4.0", "", false},      {"2.4.0.1", "2.4.0", false},
                 {"2.x.0", "1.0.0", false}, {"2..0", "1.0.0", false},  {"32768.0.0", "1.0.0", false}};
    for (const auto& c : cases)
        EXPECT_EQ(IsVersionAtLeast(c.version, c.minimum), c.atLeast) << c.version << " >= " << c.minimum;
}

}
}
