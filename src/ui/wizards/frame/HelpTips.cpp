#include "ui/wizards/frame/HelpTips.h"

#include "base/Error.h"
#include "ui/wizards/frame/RtfReader.h"

namespace tarvex {

namespace {

constexpr const char* kDefaultTip = "defaultHelpTip.rtf";

HelpTip ReadTip(IFileSystem& files, const std::string& path)
{
    try {
        return {files.ReadWholeFile(path, kLargestRtf), {}, {}};
    } catch (const Error& error) {
        return {{}, "Unable to read the Help Tip " + path + ". " + error.Description(), {}};
    }
}

}

HelpTip FindHelpTip(IFileSystem& files, const ProgramState& state, const std::string& path)
{
    const std::string folder = state.programFolder + "/HelpTips/";
    const std::string own = files.FindOwnFile(folder + path);
    for (const std::string& candidate : {path, own})
        if (files.FileExists(candidate))
            return ReadTip(files, candidate);
    const std::string fallback = files.FindOwnFile(folder + kDefaultTip);
    HelpTip tip;
    if (files.FileExists(fallback))
        tip = ReadTip(files, fallback);
    else
        tip.text = "Unable to locate the default Help Tip " + fallback;
    tip.message = "Unable to find Help Tip file " + path;
    return tip;
}

}
