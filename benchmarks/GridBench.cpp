#include "benchmarks/Report.h"
#include "ui/advanced/RegisterDisplay.h"

#include <QApplication>
#include <QLabel>

#include <cstdlib>

namespace tarvex::bench {

namespace {

constexpr std::int16_t kRegisters = 10'000;
constexpr int kBits = 8;
constexpr std::int16_t kReadWrite = 2;
constexpr std::int16_t kReadOnly = 1;

void Fill(RegisterDisplay& grid)
{
    grid.CreateRegisters(kRegisters);
    for (std::int16_t i = 0; i < kRegisters; ++i) {
        const std::string number = std::to_string(i);
        grid.SetRegister(i, "Register " + number, "List", i % 256);
        grid.SetRegisterPrompt(i, "What register " + number + " of the board sets");
        for (std::int16_t bit = 0; bit < kBits; ++bit) {
            grid.SetBitInputStatus(i, bit, bit < 6 ? kReadWrite : kReadOnly);
            grid.SetBitPrompt(i, bit, "Value");
        }
    }
}

/// Scrolls by a distance and paints, many times in each round; the median of one. One thread does all of it.
std::vector<double> ScrollTimes(RegisterDisplay& grid, int distance)
{
    constexpr int kScrolls = 50;
    std::vector<double> rounds(kRounds);
    for (double& round : rounds) {
        std::vector<double> times;
        for (int i = 1; i <= kScrolls; ++i) {
            times.push_back(ProcessorTime([&] {
                grid.Scroll(ScrollDirection::Vertical, static_cast<std::int16_t>(i * distance));
                QApplication::processEvents();
            }));
        }
        round = Median(times);
    }
    return rounds;
}

}

}

int main(int argc, char** argv)
{
    using namespace tarvex;
    using namespace tarvex::bench;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    RegisterDisplay grid;
    Fill(grid);
    grid.show();
    QApplication::processEvents();

    bool kept = Report("scrolling 10,000 registers by a page", ScrollTimes(grid, grid.MaxDisplayItems()), 5, "ms");
    kept &= Report("scrolling 10,000 registers by a row", ScrollTimes(grid, 1), 5, "ms");
    kept &= Report("rows filled again when scrolling by a row", {static_cast<double>(grid.RefilledRows())}, 1, "row");
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
