#include "support/driver/ProgramDriver.h"

#include "support/driver/Protocol.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

namespace {

constexpr int kPatience = 60'000; // milliseconds

[[noreturn]] void Fail(const std::string& text) { throw std::runtime_error(text); }

/// Folders of the user below `folder`, no display, and the driver.
std::map<std::string, std::string> UsualEnvironment(const std::filesystem::path& folder)
{
    for (const char* name : {"home", "tmp", "runtime", "c-drive"})
        std::filesystem::create_directories(folder / name);
    std::filesystem::permissions(folder / "runtime", std::filesystem::perms::owner_all);
    return {{"HOME", folder / "home"},
            {"TMPDIR", folder / "tmp"},
            {"TARVEX_ROOT", folder / "c-drive"},
            {"XDG_RUNTIME_DIR", folder / "runtime"},
            {"QT_QPA_PLATFORM", "offscreen"},
            {"QT_PLUGIN_PATH", TARVEX_TEST_PLUGINS},
            {"QT_QPA_GENERIC_PLUGINS", "tarvexdriver"}};
}

void SetEnvironment(const ProgramStart& start)
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
                             "XDG_STATE_HOME", "XDG_CURRENT_DESKTOP", "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR"})
        unsetenv(name);
    auto environment = start.environment; // an empty value in it takes the variable away
    environment.merge(UsualEnvironment(start.folder));
    for (const auto& [name, value] : environment) {
        if (value.empty())
            unsetenv(name.c_str());
        else
            setenv(name.c_str(), value.c_str(), 1);
    }
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

/// Makes this process, a fork of the test, the program.
[[noreturn]] void Become(const ProgramStart& start, int socket) noexcept
{
    SetEnvironment(start);
    std::filesystem::current_path(start.workingFolder.empty() ? start.folder : start.workingFolder);
    dup2(open((start.folder / "stderr").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600), STDERR_FILENO);
    dup2(socket, driver::kDescriptor);
    std::vector<std::string> arguments = start.switches;
    arguments.insert(arguments.begin(), start.program);
    execv(start.program.c_str(), Pointers(arguments).data());
    _exit(127);
}

}

ProgramDriver::ProgramDriver(const ProgramStart& start) : folder_(start.folder)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        Fail("no socket");
    socket_ = ends[0];
    pid_ = fork();
    if (pid_ == 0)
        Become(start, ends[1]);
    close(ends[1]);
    ReadLine();
}

ProgramDriver::~ProgramDriver()
{
    if (exitCode_ < 0 && pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(socket_);
}

std::string ProgramDriver::ReadLine() const
{
    pollfd poller{socket_, POLLIN, 0};
    if (poll(&poller, 1, kPatience) <= 0)
        Fail("the program does not answer; it said: " + ErrorOutput());
    return driver::ReceiveLine(socket_);
}

std::string ProgramDriver::Send(const std::vector<std::string>& command)
{
    const std::string line = driver::ToLine(command);
    if (send(socket_, line.data(), line.size(), MSG_NOSIGNAL) < 0)
        Fail("the program has ended before " + line + ": " + ErrorOutput());
    const std::string answer = ReadLine();
    if (answer.empty())
        return "ended"; // an input may end the program before it is answered
    const auto fields = driver::ToFields(answer);
    if (fields.at(0) != "ok")
        Fail(line + ": " + fields.at(1));
    return fields.at(1);
}

void ProgramDriver::Terminate() const { kill(pid_, SIGTERM); }

int ProgramDriver::ExitCode()
{
    while (exitCode_ < 0) {
        if (!ReadLine().empty())
            continue;
        int status = 0;
        waitpid(pid_, &status, 0);
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    return exitCode_;
}

std::string ProgramDriver::ErrorOutput() const
{
    std::ostringstream text;
    text << std::ifstream(folder_ / "stderr", std::ios::binary).rdbuf();
    return text.str();
}

}
