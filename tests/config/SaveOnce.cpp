#include "config/DataFileSaving.h"
#include "config/TarvexController.h"
#include "model/RegisterObject.h"
#include "platform/files/PosixFileSystem.h"
#include "support/ClosedPrompts.h"
#include "support/FakeClock.h"
#include "support/FakeErrorLog.h"
#include "support/FakeProgress.h"

#include <cstdio>
#include <unistd.h>

/// save_once INIT_FILE TARGET makes one save and says by its exit code how that ended: 0 saved, 3 not saved.
int main(int count, char** arguments)
{
    using namespace tarvex;
    if (count != 3)
        return 1;
    ProgramState state;
    PosixFileSystem files;
    FakeClock clock;
    FakeErrorLog log;
    ClosedPrompts prompts;
    FakeProgress window;
    const auto initFile = std::make_shared<TarvexData>(state, files);
    TarvexController controller{state, files, log, prompts, window, window};
    if (!initFile->InitToRead(arguments[1]))
        return 1;
    controller.Init(initFile);
    if (!controller.InitDevice("Vexlon"))
        return 1;
    if (access("/save-begins-here", F_OK) == 0) // a mark in the list of system calls
        return 1;
    try {
        SaveDataFile({state, files, clock}, *initFile, controller, arguments[2]);
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "%s\n", error.what()));
        return 3;
    }
    return 0;
}
