#include "base/Error.h"

#include "base/ExitRequest.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

TEST(Error, NumbersAboveTheObjectErrorBaseAreSigned)
{
    EXPECT_EQ(ObjectError(0), -2147221504);
    EXPECT_EQ(ObjectError(100), -2147221404);
}

TEST(Error, EveryRuntimeErrorHasItsText)
{
    const struct {
        std::int32_t number;
        const char* text;
    } cases[] = {{5, "Invalid procedure call or argument"},
                 {6, "Overflow"},
                 {9, "Subscript out of range"},
                 {12, "Value out of range"},
                 {13, "Type mismatch"},
                 {53, "File not found"}};
    for (const auto& c : cases)
        ExpectError([&] { RaiseRuntime(c.number, "Here::There"); }, c.number, "Here::There", c.text);
}

TEST(ExitRequest, FirstRequestWins)
{
    ExitState::Reset();
    EXPECT_NO_THROW(ExitState::RethrowIfPending());
    const int window = 0;
    const auto codeOf = [](auto&& action) {
        try {
            action();
        } catch (const ExitRequest& request) {
            return request.code;
        }
        return -1;
    };
    EXPECT_EQ(codeOf([&] { ExitApplication(2, &window); }), 2);
    EXPECT_EQ(codeOf([] { ExitApplication(7); }), 2);
    EXPECT_EQ(codeOf([] { ExitState::RethrowIfPending(); }), 2);
    EXPECT_EQ(ExitState::KeptWindow(), &window);
    ExitState::Reset();
    EXPECT_FALSE(ExitState::Pending());
    EXPECT_EQ(ExitState::KeptWindow(), nullptr);
}

}
}
