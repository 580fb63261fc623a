#pragma once

#include "base/Error.h"

#include <gtest/gtest.h>

namespace tarvex {

/// Runs the action, which has to raise an error of this number; a source or description that is not empty has to be
/// met exactly.
template <class Action>
void ExpectError(Action&& action, std::int32_t number, const std::string& source = {},
                 const std::string& description = {})
{
    try {
        action();
        ADD_FAILURE() << "No error was raised, expected " << number << " " << description;
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), number) << error.Source() << ": " << error.Description();
        EXPECT_TRUE(source.empty() || error.Source() == source) << error.Source();
        EXPECT_TRUE(description.empty() || error.Description() == description) << error.Description();
    }
}

}
