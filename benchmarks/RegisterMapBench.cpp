#include "benchmarks/Report.h"
#include "config/IProgress.h"
#include "config/TarvexController.h"
#include "config/TarvexData.h"
#include "platform/files/PosixFileSystem.h"
#include "support/FakeErrorLog.h"
#include "support/InitFileBuilder.h"
#include "support/ScriptedPrompts.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cstdlib>
#include <pugixml.hpp>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::bench {

namespace {

constexpr int kRegisters = 10'000;

class NoProgress : public IStatusLine, public IProgress {
public:
    void DisplayStatusMessage(const std::string&) override {}

private:
    void IProgress_SetRange(std::int32_t, std::int32_t) override {}
    void IProgress_TickProgress(std::int32_t) override {}
    void IProgress_Show(bool) override {}
};

/// Milliseconds from the file on disk to the registers of the controller.
double TimeOfMap(const std::string& path)
{
    ProgramState state;
    PosixFileSystem files;
    FakeErrorLog log;
    ScriptedPrompts prompts;
    NoProgress window;
    TarvexController controller(state, files, log, prompts, window, window);
    const auto initFile = std::make_shared<TarvexData>(state, files);
    bool ready = false;
    const double milliseconds = Time([&] {
        ready = initFile->InitToRead(path);
        controller.Init(initFile);
        ready = controller.InitDevice("Board") && ready;
    });
    if (!ready || controller.GetI2CRegisterCount() != kRegisters)
        throw std::runtime_error("the device has no such map");
    return milliseconds;
}

/// Measures in a process of its own: like a start of the program, each side begins with a heap that nobody warmed.
double InFreshProcess(double (*measure)(const std::string&), const std::string& path)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        double milliseconds = -1;
        try {
            milliseconds = measure(path);
        } catch (const std::exception&) {
            milliseconds = -1; // the parent reports it
        }
        const auto written = write(ends[1], &milliseconds, sizeof milliseconds);
        _exit(written == sizeof milliseconds ? 0 : 1);
    }
    double milliseconds = -1;
    const auto taken = read(ends[0], &milliseconds, sizeof milliseconds);
    close(ends[0]);
    close(ends[1]);
    waitpid(child, nullptr, 0);
    if (taken != sizeof milliseconds || milliseconds < 0)
        throw std::runtime_error("a measurement failed");
    return milliseconds;
}

double TimeOfLoading(const std::string& path)
{
    pugi::xml_document document;
    bool loaded = false;
    const double milliseconds = Time([&] { loaded = document.load_file(path.c_str()); });
    if (!loaded)
        throw std::runtime_error("the init file does not load");
    return milliseconds;
}

}

}

int main()
{
    using namespace tarvex;
    using namespace tarvex::bench;
    const TemporaryFolder folder;
    const std::string path = folder.Write("Tarvex.xml", ManyRegisters(kRegisters).Text());
    std::vector<double> ours;
    std::vector<double> alone;
    for (int i = 0; i < kRounds; ++i) {
        alone.push_back(InFreshProcess(TimeOfLoading, path));
        ours.push_back(InFreshProcess(TimeOfMap, path));
    }
    std::printf("    loading alone %.1f ms, file to controller %.1f ms\n", Median(alone), Median(ours));
    const bool kept =
        Report("register map of 10,000 registers / loading the file alone", Ratios(ours, alone), 3, "times");
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
