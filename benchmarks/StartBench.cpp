#include "benchmarks/Report.h"
#include "support/TemporaryFolder.h"
#include "support/driver/ProgramDriver.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>

namespace tarvex::bench {

namespace {

/// Starts programs again and again in the same folder and times each to its first painted window.
class Starter {
public:
    explicit Starter(bool onDisplay)
    {
        environment_["QT_QPA_GENERIC_PLUGINS"] = "tarvexfirstpaint";
        if (onDisplay) {
            environment_["QT_QPA_PLATFORM"] = "xcb";
            environment_["DISPLAY"] = std::getenv("DISPLAY");
        }
    }

    double MillisecondsToFirstPaint(const char* program, const std::vector<std::string>& switches) const
    {
        const ProgramStart start{program, switches, folder_.path, environment_, {}};
        std::unique_ptr<ProgramDriver> driven;
        return Time([&] { driven = std::make_unique<ProgramDriver>(start); }); // returns at the first paint
    }

    /// How many widgets of each kind the program has at its first paint.
    std::vector<std::string> Census(const char* program) const
    {
        ProgramStart start{program, {}, folder_.path, environment_, {}};
        const std::string file = folder_.File("census");
        start.environment["TARVEX_CENSUS"] = file;
        const ProgramDriver driven(start);
        std::vector<std::string> kinds;
        std::ifstream stream(file);
        for (std::string line; std::getline(stream, line);)
            kinds.push_back(line);
        return kinds;
    }

private:
    TemporaryFolder folder_;
    std::map<std::string, std::string> environment_;
};

}

}

int main(int argc, char** argv)
{
    using namespace tarvex::bench;
    const bool onDisplay = argc > 1 && std::strcmp(argv[1], "--display") == 0;
    const Starter starter(onDisplay);
    const auto kinds = starter.Census(TARVEX_PROGRAM);
    if (kinds.empty()) {
        std::printf("Tarvex ended before it painted a window\n");
        return EXIT_FAILURE;
    }
    std::vector<double> ours;
    std::vector<double> bare;
    for (int i = 0; i < kRounds; ++i) {
        bare.push_back(starter.MillisecondsToFirstPaint(TARVEX_BARE_WINDOW, kinds));
        ours.push_back(starter.MillisecondsToFirstPaint(TARVEX_PROGRAM, {}));
    }
    std::printf("    bare window %.1f ms, Tarvex %.1f ms\n", Median(bare), Median(ours));
    const bool kept = Report(onDisplay ? "start to first paint on a display / bare window with the same widgets"
                                       : "start to first paint offscreen / bare window with the same widgets",
                             Ratios(ours, bare), 2, "times");
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
