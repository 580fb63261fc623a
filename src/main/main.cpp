#include "main/Application.h"

#include "base/ExitRequest.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool HasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(name); value && *value)
            return true;
    return false;
}

/// The toolkit ends the program where it cannot reach the display.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtFatalMsg)
        std::_Exit(tarvex::kExitMissing);
}

std::string JoinedArguments(int count, char** arguments)
{
    std::string joined;
    for (int i = 1; i < count; ++i)
        joined += (i > 1 ? " " : "") + std::string(arguments[i]);
    return joined;
}

}

int main(int argumentCount, char** arguments)
{
    if (!HasDisplay()) {
        std::fputs("Tarvex needs a display: set DISPLAY or WAYLAND_DISPLAY and start it again.\n", stderr);
        return tarvex::kExitMissing;
    }
    int programNameOnly = 1; // switches are the program's own, none is for the toolkit
    qInstallMessageHandler(EndWithoutDisplay);
    QApplication application(programNameOnly, arguments);
    qInstallMessageHandler(nullptr);
    return tarvex::RunApplication(JoinedArguments(argumentCount, arguments));
}
