#include "cli/RandomInputRun.h"

namespace tarvex {
namespace {

/// The program in the virtual machine, on a board that is unplugged, or answers late or not at all, now and then.
class RandomInput : public RandomInputRun {
protected:
    RandomInput() { measuresDelay_ = false; } // the machine's clock runs ahead while its disk is read

    ~RandomInput() override
    {
        Board("heal");
        if (!isPlugged_)
            Board("plug");
    }

private:
    static void Board(const std::string& command) { std::ofstream("/run/board") << command << std::endl; }

    void Disturb(Random& random) override
    {
        static constexpr const char* kStates[] = {"heal", "heal", "mute 1", "mute 3", "slow 3", "deaf"};
        if (random() % 4 == 0)
            Board((isPlugged_ = !isPlugged_) ? "plug" : "unplug");
        else
            Board(kStates[random() % std::size(kStates)]);
    }

    bool isPlugged_ = true;
};

TEST_P(RandomInput, NeitherCrashesNorHangs) { Run(); }

INSTANTIATE_TEST_SUITE_P(Boards, RandomInput,
                         ::testing::Values(Place{"Registers", {}, "ProductMenu_0"}, Place{"Vexlon", {"-wVexlon"}}),
                         [](const auto& each) { return std::string(each.param.name); });

}
}
