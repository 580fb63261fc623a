#include "base/Error.h"

#include "support/ExitCode.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

TEST(Error, KeepsTheStatedNumbersAndTexts)
{
    EXPECT_EQ(ObjectError(100), -2147221404);
    const std::pair<std::int32_t, const char*> cases[] = {{5, "Invalid procedure call or argument"},
                                                          {6, "Overflow"},
                                                          {9, "Subscript out of range"},
                                                          {12, "Value out of range"},
                                                          {13, "Type mismatch"},
                                                          {53, "File not found"}};
    for (const auto& c : cases)
        ExpectError([&] { RaiseRuntime(c.first, "Here::There"); }, c.first, "Here::There", c.second);
}

TEST(ExitRequest, FirstRequestWins)
{
    const int window = 0;
    EXPECT_THROW(ExitApplication(2, &window), ExitRequest);
    EXPECT_EQ(ExitState::KeptWindow(), &window);
    EXPECT_EQ(ExitCodeOf([] { ExitApplication(7); }), 2);
    EXPECT_NO_THROW(ExitState::RethrowIfPending());
}

}
}
