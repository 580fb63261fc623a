#include "support/driver/ProgramDriver.h"

#include "support/driver/Protocol.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

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

QProcessEnvironment EnvironmentOf(const ProgramStart& start)
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
                             "XDG_STATE_HOME", "XDG_CURRENT_DESKTOP", "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR"})
        result.remove(name);
    auto environment = start.environment; // an empty value in it takes the variable away
    environment.merge(UsualEnvironment(start.folder));
    for (const auto& [name, value] : environment)
        result.insert(QString::fromStdString(name), QString::fromStdString(value));
    for (const auto& [name, value] : environment)
        if (value.empty())
            result.remove(QString::fromStdString(name));
    return result;
}

QString ToText(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

}

ProgramDriver::ProgramDriver(const ProgramStart& start) : folder_(start.folder)
{
    QStringList switches;
    for (const std::string& each : start.switches)
        switches << QString::fromStdString(each);
    process_.setProcessEnvironment(EnvironmentOf(start));
    process_.setWorkingDirectory(ToText(start.workingFolder.empty() ? start.folder : start.workingFolder));
    process_.setStandardErrorFile(ToText(start.folder / "stderr"));
    process_.start(ToText(start.program), switches);
    if (!process_.waitForStarted())
        Fail("the program does not start");
    ReadLine();
}

ProgramDriver::~ProgramDriver()
{
    process_.kill();
    process_.waitForFinished();
}

std::string ProgramDriver::ReadLine()
{
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(kPatience)) {
            if (HasEnded())
                return {};
            Fail("the program does not answer; it said: " + ErrorOutput());
        }
    return process_.readLine().chopped(1).toStdString();
}

std::string ProgramDriver::Send(const std::vector<std::string>& command)
{
    const std::string line = driver::ToLine(command);
    if (HasEnded())
        Fail("the program has ended before " + line + ": " + ErrorOutput());
    process_.write(line.c_str());
    const std::string answer = ReadLine();
    if (answer.empty())
        return "ended"; // an input may end the program before it is answered
    const auto fields = driver::ToFields(answer);
    if (fields.at(0) != "ok")
        Fail(line + ": " + fields.at(1));
    return fields.at(1);
}

void ProgramDriver::Terminate() { process_.terminate(); }

int ProgramDriver::ExitCode()
{
    if (!HasEnded() && !process_.waitForFinished(kPatience))
        Fail("the program does not end; it said: " + ErrorOutput());
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : 128 + process_.exitCode();
}

std::string ProgramDriver::ErrorOutput() const
{
    std::ostringstream text;
    text << std::ifstream(folder_ / "stderr", std::ios::binary).rdbuf();
    return text.str();
}

}
