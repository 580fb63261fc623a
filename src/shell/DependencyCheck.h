#pragma once

#include "base/ProgramState.h"
#include "platform/IUserPrompts.h"
#include "platform/zorbus/INorvaneSystem.h"

#include <functional>
#include <memory>
#include <string>

namespace tarvex {

/// How the two libraries are got at. Each raises Error when its library cannot be loaded: 53 when a file is missing.
struct Dependencies {
    std::function<std::string()> xmlVersion;
    std::function<std::shared_ptr<INorvaneSystem>()> norvaneSystem;
};

/// Checks that both libraries are there and new enough; otherwise tells the user and answers false.
bool TestForDependencies(const Dependencies& dependencies, const ProgramState& state, IUserPrompts& prompts);

}
