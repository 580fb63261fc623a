#pragma once

#include <QProcess>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tarvex {

/// What a program is started with.
struct ProgramStart {
    std::filesystem::path program;
    std::vector<std::string> switches;
    /// Everything that the program reads and writes of the user's lies below: home, settings, state, temporary files.
    std::filesystem::path folder;
    std::map<std::string, std::string> environment; ///< beyond, or instead of, what is set for every run
    std::filesystem::path workingFolder;            ///< `folder` when empty
};

/// The built program, started without a change to it on a display of its own, and driven as a user would. Every
/// failure, and everything that takes longer than a minute, raises std::runtime_error.
class ProgramDriver {
public:
    /// Starts the program and returns when its event loop runs or when it has ended.
    explicit ProgramDriver(const ProgramStart& start);
    /// Kills a program that still runs.
    ~ProgramDriver();
    ProgramDriver(const ProgramDriver&) = delete;
    ProgramDriver& operator=(const ProgramDriver&) = delete;

    /// Sends one command of the driver (support/driver/Commands.h) to the running program and returns the text of its
    /// answer, "ended" when the program ended instead.
    std::string Send(const std::vector<std::string>& command);

    void Click(const std::string& name) { Send({"click", name}); }
    /// Clicks an item of a list or tree: its name, then the item's text.
    void Item(const std::string& name) { Send({"item", name}); }
    void Menu(const std::string& action) { Send({"menu", action}); }
    void Key(const std::string& keys) { Send({"key", keys}); }
    void Type(const std::string& text) { Send({"type", text}); }
    void WaitShown(const std::string& name) { Send({"wait", "shown", name}); }
    /// Until the program takes input again.
    void WaitIdle() { Send({"wait", "idle"}); }
    void WaitText(const std::string& name, const std::string& part) { Send({"wait", "text", name, part}); }
    std::string Text(const std::string& name) { return Send({"text", name}); }

    /// Asks the program to end, as the system does at shutdown.
    void Terminate();
    /// Whether the end of the program has been noticed.
    bool HasEnded() const { return process_.state() == QProcess::NotRunning; }
    /// Waits for the end of the program: its exit code, or 128 and the number of the signal that killed it.
    int ExitCode();
    pid_t Pid() const { return static_cast<pid_t>(process_.processId()); }
    std::string ErrorOutput() const;

private:
    /// One answer of the driver; empty when the program closed its side.
    std::string ReadLine();

    std::filesystem::path folder_;
    QProcess process_;
};

}
