#pragma once

#include "cli/ProgramTest.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <random>
#include <sstream>

namespace tarvex {

/// A window of the program, and how a user gets to it.
struct Place {
    const char* name;
    std::vector<std::string> switches;
    std::string product = {};   ///< entry of the product menu to choose first
    bool hasFaultyLink = false; ///< calls of the serial network fail now and then
};

inline std::ostream& operator<<(std::ostream& stream, const Place& place) { return stream << place.name; }

/// A user who presses anything anywhere in one window, for ten seconds, or for two minutes in a long run.
class RandomInputRun : public ProgramTest, public ::testing::WithParamInterface<Place> {
protected:
    using Random = std::mt19937;

    /// Done before every fiftieth input.
    virtual void Disturb(Random&) {}

    void Run()
    {
        const char* setting = std::getenv("TARVEX_LONG");
        const bool isLong = setting && *setting;
        using std::chrono::steady_clock;
        const auto end = steady_clock::now() + std::chrono::seconds(isLong ? 120 : 10);
        Random random(std::random_device{}());
        auto driver = StartProgram();
        int inputs = 0;
        long latestBeat = 0;
        for (; steady_clock::now() < end; ++inputs) {
            const bool isBeat = inputs % 50 == 49;
            if (isBeat)
                Disturb(random);
            const std::string answer = driver->HasEnded() ? "ended" // after the answer to the input before
                                       : isBeat           ? driver->Send({"beat"})
                                                          : driver->Send({"random", std::to_string(random())});
            if (answer != "ended" && isBeat)
                latestBeat = std::max(latestBeat, std::stol(answer));
            if (answer == "ended") {
                const int code = driver->ExitCode();
                ASSERT_TRUE(code == 0 || code == 7 || code == 9) << code << '\n' << LastOutput(*driver);
                driver = StartProgram();
            }
        }
        driver->Terminate();
        driver->ExitCode();
        EXPECT_EQ(driver->ErrorOutput().find("Sanitizer"), std::string::npos) << LastOutput(*driver);
        EXPECT_EQ(driver->ErrorOutput().find("runtime error"), std::string::npos) << LastOutput(*driver);
        CheckLog();
        RecordProperty("inputs", inputs);
        RecordProperty("latest_beat_ms", static_cast<int>(latestBeat));
        std::printf("%d inputs, the event loop was late by %ld ms at worst\n", inputs, latestBeat);
        if (isLong) { // otherwise other tests run beside it
            EXPECT_LT(latestBeat, 1000);
        }
    }

private:
    std::unique_ptr<ProgramDriver> StartProgram()
    {
        ProgramStart start = With(GetParam().switches);
        if (GetParam().hasFaultyLink)
            start.environment["TARVEX_NETWORK"] = FaultyNetwork();
        auto driver = std::make_unique<ProgramDriver>(start);
        if (!GetParam().product.empty()) {
            driver->WaitShown("AdvancedForm");
            driver->Menu(GetParam().product);
        }
        driver->Send({"beat"}); // while the window is made no user waits for it
        return driver;
    }

    /// The shipped network, where one call in many fails.
    std::string FaultyNetwork()
    {
        const auto shipped = std::filesystem::path(TARVEX_PROGRAM).parent_path() / "ZorbusNetwork.xml";
        std::ostringstream text;
        text << std::ifstream(shipped).rdbuf();
        std::string network = text.str();
        std::string faults;
        for (const char* operation : {"ReadParameter", "WriteParameter", "PingNode"})
            for (int after = 5; after < 1000; after *= 2)
                faults += std::string("<Fault operation=\"") + operation + "\" after=\"" + std::to_string(after) +
                          "\" times=\"2\"/>";
        network.insert(network.find("<Port"), faults);
        folder.Write("network.xml", network);
        return folder.File("network.xml");
    }

    /// What the program said last.
    static std::string LastOutput(const ProgramDriver& driver)
    {
        const std::string all = driver.ErrorOutput();
        return all.substr(all.size() - std::min<std::size_t>(all.size(), 1500));
    }

    /// Every entry of the log is whole, and says by number and source what failed.
    void CheckLog()
    {
        if (!std::filesystem::exists(folder.File("TarvexError.log")))
            return;
        std::istringstream log(folder.Read("TarvexError.log"));
        const std::string words = " raised from ";
        for (std::string line, text; std::getline(log, line);) {
            const auto at = line.find(words);
            if (at != std::string::npos && std::getline(log, text)) {
                EXPECT_NE(std::atol(line.c_str()), 0) << line << ": " << text;
                EXPECT_GT(line.size(), at + words.size()) << text;
            }
        }
    }
};

}
