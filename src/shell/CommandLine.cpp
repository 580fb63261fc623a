#include "shell/CommandLine.h"

#include "base/ExitRequest.h"
#include "base/Text.h"
#include "base/Version.h"

namespace tarvex {

namespace {

[[noreturn]] void RefuseSwitch(const std::string& piece, const CommandLine& line, IUserPrompts& prompts)
{
    if (!line.batch)
        prompts.Tell("Unrecognized command line parameter: " + piece);
    ExitApplication(kExitUnknownSwitch);
}

void Classify(const std::string& spelt, CommandLine& line, IUserPrompts& prompts)
{
    const std::string piece = ToLower(spelt);
    if (piece == "demo")
        line.demo = true;
    else if (piece == "zb_unit_test")
        line.selfTest = true;
    else if (piece == "help" || piece == "h")
        line.help = true;
    else if (piece == "auto")
        line.batch = true;
    else if (piece.find('w') != std::string::npos)
        line.wizardProduct = ToUpper(piece.substr(1));
    else if (piece.find(".xml") != std::string::npos)
        line.dataFile = line.dataFile.empty() ? spelt : line.dataFile;
    else
        RefuseSwitch(piece, line, prompts);
}

/// Takes a file off the beginning that is named by its whole path, as desktops do: letters and dashes in its name are
/// no switches. It ends where nothing follows, or a switch. Empty when there is none.
std::string TakeWholePath(std::string_view& text)
{
    constexpr std::string_view kEnding = ".xml";
    if (!text.starts_with('/'))
        return {};
    const std::string lower = ToLower(text);
    const auto isEnd = [&](std::size_t dot) {
        const std::string_view rest = text.substr(dot + kEnding.size());
        return TrimBlanks(rest).empty() || rest.starts_with(" -");
    };
    auto end = lower.find(kEnding);
    while (end != std::string::npos && !isEnd(end))
        end = lower.find(kEnding, end + 1);
    if (end == std::string::npos)
        return {};
    std::string path(text.substr(0, end + kEnding.size()));
    text.remove_prefix(path.size());
    return path;
}

}

CommandLine ParseCommandLine(std::string_view text, IUserPrompts& prompts)
{
    CommandLine line;
    line.dataFile = TakeWholePath(text);
    for (const std::string& part : Split(text, " -")) {
        std::string_view piece = TrimBlanks(part);
        if (piece.empty())
            continue;
        if (piece.front() == '-')
            piece.remove_prefix(1);
        Classify(std::string(piece), line, prompts);
    }
    line.wizardProduct = ReplaceAll(line.wizardProduct, '_', '-');
    return line;
}

void ShowUsage(const ProgramState& state, IUserPrompts& prompts)
{
    prompts.Tell("Usage: \r\n"
                 " filename.xml  has to be first parameter\r\n"
                 "-demo  run the app normally but without communicating with target board\r\n"
                 "-help  display this screen\r\n"
                 "-auto  batch mode. Open and load filename.xml and exit.\r\n"
                 "-w<productName>  display the product wizard UI. (choices: Vexlon, Vexlon-Fx, Cendra, Ossary, or "
                 "Ossary_Plus)\r\n"
                 "-zb_unit_test  run the unit tests and close",
                 state.programFileName + " " + AppVersionString());
}

}
