#include "benchmarks/Report.h"
#include "support/InitFileBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/driver/ProgramDriver.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace tarvex::bench {

namespace {

constexpr int kRegisters = 10'000;

/// KiB of memory that a process has for itself, the pages of files aside.
double OwnMemory(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; file >> word;) {
        double kibibytes = 0;
        if (word == "Anonymous:" && file >> kibibytes)
            return kibibytes;
    }
    throw std::runtime_error("the memory of the process cannot be read");
}

double BareWindow()
{
    const TemporaryFolder folder;
    ProgramDriver driven({TARVEX_BARE_WINDOW, {}, folder.path, {}, {}});
    driven.WaitShown("BareWindow");
    return OwnMemory(driven.Pid());
}

/// The program in a folder of its own, whose init file describes a board of so many registers, with that board chosen.
double TarvexWith(int registers)
{
    namespace fs = std::filesystem;
    const TemporaryFolder folder;
    const fs::path program = fs::path(folder.path) / "program";
    fs::create_directory(program);
    fs::copy_file(TARVEX_PROGRAM, program / "tarvex");
    folder.Write("program/Tarvex.xml", ManyRegisters(registers).Text());

    ProgramDriver driven({program / "tarvex", {"-demo"}, folder.path, {}, {}});
    driven.WaitShown("AdvancedForm");
    driven.Menu("ProductMenu_0");
    driven.WaitText("UI_RegisterItem_0/NameLabel", "Register 0");
    return OwnMemory(driven.Pid());
}

}

}

int main()
{
    using namespace tarvex::bench;
    constexpr int kStarts = 5;
    std::vector<double> rounds;
    for (int i = 0; i < kStarts; ++i)
        rounds.push_back((TarvexWith(kRegisters) - BareWindow()) / kRegisters);
    const bool kept = Report("memory above a bare window, 10,000 registers", rounds, 1.5, "KiB a register");
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
