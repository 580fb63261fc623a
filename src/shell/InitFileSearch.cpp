#include "shell/InitFileSearch.h"

#include "base/ExitRequest.h"
#include "base/Text.h"

namespace tarvex {

namespace {

std::string AskForInitFile(const ProgramState& state, IUserPrompts& prompts)
{
    if (!prompts.Ask("Unable to find the initialization file Tarvex.xml in " + state.programFolder +
                         ". Do you want to search for it?",
                     "Tarvex Init File Not Found"))
        ExitApplication(kExitInitFile);
    FileDialogRequest request;
    request.title = "Locate Tarvex.xml";
    request.folder = state.programFolder;
    request.defaultExtension = "xml";
    if (auto chosen = prompts.AskOpenFile(request))
        return *chosen;
    prompts.Tell("User canceled search for initialization file.  Closing Tarvex.");
    ExitApplication(kExitInitFile);
}

void RefuseChoice(std::string_view fileName, IUserPrompts& prompts)
{
    std::string text = "Please locate Tarvex.xml.";
    if (ContainsIgnoringCase(fileName, kHelpFileName))
        text += " You must locate the init file before you can view the usage notes. "
                "If you want to see the Windows Help files, use Windows Explorer to launch Tarvex.hlp directly.";
    prompts.Tell(text, "Locate Tarvex.xml", Icon::Exclamation);
}

}

std::string FindInitFile(const ProgramState& state, IFileSystem& files, IUserPrompts& prompts)
{
    const std::string standard = files.FindOwnFile(state.programFolder + "/" + kInitFileName);
    std::string path = standard;
    while (!files.FileExists(path)) {
        path = AskForInitFile(state, prompts);
        const std::string_view fileName = FileNameOf(path);
        if (ContainsIgnoringCase(fileName, kInitFileName))
            continue;
        RefuseChoice(fileName, prompts);
        path = standard;
    }
    return path;
}

}
