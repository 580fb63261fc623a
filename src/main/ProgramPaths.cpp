#include "main/ProgramPaths.h"

#include "base/Text.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace tarvex {

namespace {

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string RootFolder()
{
    if (std::string root = Variable("TARVEX_ROOT"); !root.empty())
        return root;
    if (const std::string states = Variable("XDG_STATE_HOME"); states.starts_with('/'))
        return states + "/tarvex";
    return Variable("HOME") + "/.local/state/tarvex";
}

}

ProgramState StateOfThisProcess()
{
    std::error_code failure;
    const std::string program = std::filesystem::read_symlink("/proc/self/exe", failure).string();
    ProgramState state;
    state.programFileName = FileNameOf(program);
    state.programFolder = program.substr(0, program.size() - state.programFileName.size());
    if (state.programFolder.size() > 1)
        state.programFolder.pop_back();
    state.rootFolder = RootFolder();
    state.instanceHandle = getpid();
    return state;
}

}
