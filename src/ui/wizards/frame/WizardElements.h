#pragma once

#include "base/ProgramState.h"
#include "config/IConfigController.h"
#include "platform/IFileSystem.h"
#include "ui/wizards/frame/IWizardFrameView.h"
#include "ui/wizards/frame/WizardDescription.h"

#include <string>
#include <vector>

namespace tarvex {

/// Full path of a file in the program's picture folder; of "blank.jpg" without a name.
std::string FindPicture(IFileSystem& files, const ProgramState& state, const std::string& fileName);

/// The list of a board's elements: its properties where the init file names pictures for them, or where there is no
/// built-in list; else that list.
std::vector<ElementItem> FindElements(IConfigController& controller, IFileSystem& files, const ProgramState& state,
                                      const std::vector<BuiltInElement>& builtIn);

/// A property's description and help tip; both empty for an unknown property.
struct ElementTexts {
    bool known = false;
    std::string description;
    std::string helpTip;
};

ElementTexts TextsOfElement(IConfigController& controller, const std::string& element);

}
