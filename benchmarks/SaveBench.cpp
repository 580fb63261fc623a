#include "benchmarks/Report.h"
#include "config/DataFileSaving.h"
#include "config/IProgress.h"
#include "config/TarvexController.h"
#include "model/RegisterObject.h"
#include "platform/files/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FakeErrorLog.h"
#include "support/InitFileBuilder.h"
#include "support/ScriptedPrompts.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <pugixml.hpp>
#include <stdexcept>
#include <unistd.h>

namespace tarvex::bench {

namespace {

class NoProgress : public IStatusLine, public IProgress {
public:
    void DisplayStatusMessage(const std::string&) override {}

private:
    void IProgress_SetRange(std::int32_t, std::int32_t) override {}
    void IProgress_TickProgress(std::int32_t) override {}
    void IProgress_Show(bool) override {}
};

/// A device with so many registers, each with a value of its own, in a running program.
class Board {
public:
    Board(const TemporaryFolder& folder, int registers)
    {
        initFile_->InitToRead(folder.Write("Tarvex.xml", ManyRegisters(registers).Text()));
        controller_.Init(initFile_);
        if (!controller_.InitDevice("Board") || controller_.GetI2CRegisterCount() != registers)
            throw std::runtime_error("the device has no such map");
        for (std::int16_t i = 0; i < registers; ++i)
            controller_.GetI2CRegister(i)->value(i % 256);
    }

    void Save(const std::string& path) { SaveDataFile({state_, files_, clock_}, *initFile_, controller_, path); }

private:
    ProgramState state_;
    PosixFileSystem files_;
    FakeClock clock_;
    FakeErrorLog log_;
    ScriptedPrompts prompts_;
    NoProgress window_;
    std::shared_ptr<TarvexData> initFile_ = std::make_shared<TarvexData>(state_, files_);
    TarvexController controller_{state_, files_, log_, prompts_, window_, window_};
};

/// The yardstick: the library writes its document, and the file is flushed.
void WriteAlone(const pugi::xml_document& document, const std::string& path)
{
    const bool saved = document.save_file(path.c_str(), "  ");
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (!saved || fsync(file) != 0 || close(file) != 0)
        throw std::runtime_error("the document cannot be written");
}

struct Times {
    std::vector<double> ours;
    std::vector<double> alone;
    std::vector<double> processor; ///< of ours
};

Times Measure(int registers)
{
    const TemporaryFolder folder;
    Board board(folder, registers);
    const std::string path = folder.File("mine.xml");
    board.Save(path);
    pugi::xml_document document;
    if (!document.load_file(path.c_str()))
        throw std::runtime_error("the saved file does not load");
    Times times;
    for (int i = 0; i < kRounds; ++i) {
        times.alone.push_back(Time([&] { WriteAlone(document, folder.File("alone.xml")); }));
        times.processor.push_back(ProcessorTime([&] { times.ours.push_back(Time([&] { board.Save(path); })); }));
    }
    std::printf("    %d registers: writing alone %.1f ms, saving %.1f ms\n", registers, Median(times.alone),
                Median(times.ours));
    return times;
}

}

}

int main()
{
    using namespace tarvex::bench;
    Measure(1'000);
    const Times times = Measure(10'000);
    const Times large = Measure(30'000);
    const bool kept =
        Report("saving 10,000 registers / writing the document alone", Ratios(times.ours, times.alone), 3, "times");
    const bool linear = Report("saving 30,000 registers / saving 10,000, processor time",
                               Ratios(large.processor, times.processor), 4, "times");
    return kept && linear ? EXIT_SUCCESS : EXIT_FAILURE;
}
