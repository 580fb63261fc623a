#pragma once

#include "base/ExitRequest.h"

#include <optional>

namespace tarvex {

/// The code with which an action ends the program, or none when it returns. The request is forgotten afterwards.
template <class Action> std::optional<int> ExitCodeOf(const Action& action)
{
    std::optional<int> code;
    try {
        action();
    } catch (const ExitRequest& request) {
        code = request.code;
    }
    ExitState::Reset();
    return code;
}

}
