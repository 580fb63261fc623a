#include "cli/RandomInputRun.h"

#include <atomic>
#include <pthread.h>
#include <sched.h>
#include <thread>

namespace tarvex {
namespace {

/// The program in the virtual machine, on a board that is unplugged, or answers late or not at all, now and then.
class RandomInput : public RandomInputRun {
protected:
    /// The machine's clock would run ahead while it waits for its disk: delays can be measured when it is never idle.
    RandomInput()
        : idler_([this] {
              const sched_param none{};
              pthread_setschedparam(pthread_self(), SCHED_IDLE, &none);
              while (!ends_)
                  continue;
          })
    {}

    ~RandomInput() override
    {
        Board("heal");
        if (!isPlugged_)
            Board("plug");
        ends_ = true;
        idler_.join();
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
    std::atomic<bool> ends_ = false;
    std::thread idler_;
};

TEST_P(RandomInput, NeitherCrashesNorHangs) { Run(); }

INSTANTIATE_TEST_SUITE_P(Boards, RandomInput,
                         ::testing::Values(Place{"Registers", {}, "ProductMenu_0"}, Place{"Vexlon", {"-wVexlon"}}),
                         [](const auto& each) { return std::string(each.param.name); });

}
}
