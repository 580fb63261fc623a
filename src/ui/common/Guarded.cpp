#include "ui/common/Guarded.h"

#include <QCoreApplication>

namespace tarvex {

namespace {

/// Where the errors go while the event loop lives.
struct Receivers {
    IErrorLog* log = nullptr;
    IUserPrompts* prompts = nullptr;
};

Receivers& Installed() noexcept
{
    static Receivers receivers;
    return receivers;
}

}

void UncaughtErrors::Install(IErrorLog* log, IUserPrompts* prompts) noexcept { Installed() = {log, prompts}; }

void UncaughtErrors::Log() noexcept
{
    if (Installed().log)
        Installed().log->LogCurrentError();
}

void UncaughtErrors::Show(const std::string& text)
{
    if (Installed().prompts)
        Installed().prompts->Tell(text, "Tarvex", Icon::Exclamation);
}

void UncaughtErrors::EndEventLoop() noexcept { QCoreApplication::exit(ExitState::Code()); }

}
