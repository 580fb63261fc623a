#include "base/ExitRequest.h"

#include "support/ExitCode.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

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
