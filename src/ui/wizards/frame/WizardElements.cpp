#include "ui/wizards/frame/WizardElements.h"

#include "base/Error.h"
#include "model/TarvexProperty.h"

#include <algorithm>
#include <memory>

namespace tarvex {

namespace {

constexpr const char* kNoPicture = "blank.jpg";

std::vector<std::shared_ptr<TarvexProperty>> AllProperties(IConfigController& controller)
{
    std::vector<std::shared_ptr<TarvexProperty>> properties;
    for (std::int16_t i = 0; i < controller.GetPropertyCount(); ++i)
        properties.push_back(controller.GetProperty(i));
    return properties;
}

}

std::string FindPicture(IFileSystem& files, const ProgramState& state, const std::string& fileName)
{
    return files.FindOwnFile(state.programFolder + "/Images/" + (fileName.empty() ? kNoPicture : fileName));
}

std::vector<ElementItem> FindElements(IConfigController& controller, IFileSystem& files, const ProgramState& state,
                                      const std::vector<BuiltInElement>& builtIn)
{
    const auto properties = AllProperties(controller);
    const bool named = std::any_of(properties.begin(), properties.end(),
                                   [](const auto& each) { return !each->ImageFilepath().empty(); });
    std::vector<ElementItem> elements;
    if (!named && !builtIn.empty()) {
        for (const BuiltInElement& each : builtIn)
            elements.push_back({each.name, FindPicture(files, state, each.picture), each.imageKey});
        return elements;
    }
    for (const auto& each : properties) {
        const std::string& image = each->ImageFilepath();
        elements.push_back({each->Name(), image.empty() ? FindPicture(files, state, image)
                                                        : files.FindOwnFile(state.programFolder + "/" + image)});
    }
    return elements;
}

ElementTexts TextsOfElement(IConfigController& controller, const std::string& element)
{
    for (const auto& each : AllProperties(controller))
        if (each->Name() == element)
            return {true, each->Description(), each->helpTip()};
    return {};
}

}
