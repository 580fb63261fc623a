#include "support/driver/ProgramDriver.h"

#include "support/driver/Protocol.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

namespace {

constexpr int kPatience = 60'000; // milliseconds

[[noreturn]] void Fail(const std::string& text) { throw std::runtime_error(text); }

bool IsOfDesktop(std::string_view name)
{
    const auto starts = {"DISPLAY", "WAYLAND_", "QT_", "XDG_", "TARVEX_"};
    return std::any_of(starts.begin(), starts.end(), [name](auto* start) { return name.starts_with(start); });
}

using Environment = std::map<std::string, std::string>;

/// The caller's environment without its desktop.
Environment Inherited()
{
    Environment result;
    for (char** entry = environ; *entry; ++entry) {
        const std::string_view text = *entry;
        const auto equals = text.find('=');
        if (equals != std::string_view::npos && !IsOfDesktop(text.substr(0, equals)))
            result.emplace(text.substr(0, equals), text.substr(equals + 1));
    }
    return result;
}

/// Folders of the user, made below `folder`; those for configuration and data lie below the home.
Environment OwnFolders(const std::filesystem::path& folder)
{
    const Environment places = {
        {"HOME", "home"}, {"TMPDIR", "tmp"}, {"XDG_RUNTIME_DIR", "runtime"}, {"TARVEX_ROOT", "c-drive"}};
    Environment result;
    for (const auto& [name, place] : places) {
        std::filesystem::create_directories(folder / place);
        result[name] = folder / place;
    }
    std::filesystem::permissions(folder / "runtime", std::filesystem::perms::owner_all);
    return result;
}

std::vector<std::string> EnvironmentFor(const ProgramStart& start)
{
    Environment environment = start.environment;
    environment.merge(OwnFolders(start.folder));
    environment.merge(Environment{{"QT_QPA_PLATFORM", "offscreen"},
                                  {"QT_PLUGIN_PATH", TARVEX_TEST_PLUGINS},
                                  {"QT_QPA_GENERIC_PLUGINS", "tarvexdriver"}});
    environment.merge(Inherited());
    std::vector<std::string> result;
    for (const auto& [name, value] : environment) {
        if (!value.empty())
            result.push_back(name + '=' + value);
    }
    return result;
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

}

ProgramDriver::ProgramDriver(const ProgramStart& start) : folder_(start.folder)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        Fail("no socket");
    socket_ = ends[0];
    Start(start, ends[1]);
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

void ProgramDriver::Start(const ProgramStart& start, int childEnd)
{
    std::vector<std::string> arguments = start.switches;
    arguments.insert(arguments.begin(), start.program);
    std::vector<std::string> environment = EnvironmentFor(start);
    const auto workingFolder = start.workingFolder.empty() ? folder_ : start.workingFolder;
    const std::string errors = folder_ / "stderr";

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_adddup2(&actions, childEnd, driver::kDescriptor);
    posix_spawn_file_actions_addchdir_np(&actions, workingFolder.c_str());
    const int failure = posix_spawn(&pid_, start.program.c_str(), &actions, nullptr, Pointers(arguments).data(),
                                    Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        pid_ = -1;
        Fail("cannot start " + start.program.string());
    }
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
