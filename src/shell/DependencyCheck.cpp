#include "shell/DependencyCheck.h"

#include "base/Error.h"
#include "base/Version.h"

#include <exception>

namespace tarvex {

namespace {

constexpr const char* kMissingFileAdvice =
    " Inability to find a file/dll may indicate incorrect versions of dependent files/dll as well."
    " Tarvex dependencies are listed in Tarvex_Versions.htm found in the"
    " installation folder or on the distribution CD.";

bool Refuse(std::string text, IUserPrompts& prompts)
{
    prompts.Tell(std::move(text));
    return false;
}

std::string LoadFailure(const std::string& component, const std::string& description)
{
    return "Stopping execution. Unable to load " + component + " ActiveX component. " +
           " Last error is: " + description + ". ";
}

std::int32_t NumberOf(const std::exception& failure)
{
    const auto* error = dynamic_cast<const Error*>(&failure);
    return error ? error->Number() : 0;
}

bool TestForXml(const Dependencies& dependencies, const ProgramState& state, IUserPrompts& prompts)
{
    std::string version;
    try {
        version = dependencies.xmlVersion();
    } catch (const std::exception& failure) {
        std::string text = LoadFailure("ChilkatXML", failure.what());
        if (NumberOf(failure) == kErrFileNotFound)
            text += kMissingFileAdvice;
        return Refuse(text + state.g_dependsHelp + ". ", prompts);
    }
    if (IsVersionAtLeast(version, "5.0.1"))
        return true;
    return Refuse("Dependency check:  Found ChilkatXML " + version + ", Require 5.0.1", prompts);
}

bool TestForNorvane(const Dependencies& dependencies, const ProgramState& state, IUserPrompts& prompts)
{
    std::string version;
    bool isNewEnough = false;
    try {
        const auto system = dependencies.norvaneSystem();
        version = system->Version();
        isNewEnough = system->MinimumVersion("1", "1", "11");
    } catch (const std::exception& failure) {
        const bool fileIsMissing = NumberOf(failure) == kErrFileNotFound;
        return Refuse(LoadFailure("Norvane.System", failure.what()) +
                          (fileIsMissing ? kMissingFileAdvice : state.g_dependsHelp + ". "),
                      prompts);
    }
    if (isNewEnough)
        return true;
    return Refuse("Dependency check:  Found Norvane " + version + ", Require 1.1.11", prompts);
}

}

bool TestForDependencies(const Dependencies& dependencies, const ProgramState& state, IUserPrompts& prompts)
{
    return TestForXml(dependencies, state, prompts) && TestForNorvane(dependencies, state, prompts);
}

}
