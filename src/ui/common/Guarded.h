#pragma once

#include "base/ExitRequest.h"
#include "base/IErrorLog.h"
#include "platform/IUserPrompts.h"

#include <exception>
#include <string>
#include <type_traits>
#include <utility>

namespace tarvex {

/// What happens to errors that no handler of ours caught before they would have crossed the event loop: they are logged
/// and shown. Main installs log and prompts for the life of the event loop.
class UncaughtErrors {
public:
    static void Install(IErrorLog* log, IUserPrompts* prompts) noexcept;
    /// Logs the exception being handled.
    static void Log() noexcept;
    /// Shows a text in a box; may throw ExitRequest.
    static void Show(const std::string& text);
    /// Leaves all event loops with the remembered code.
    static void EndEventLoop() noexcept;
};

/// Runs a body from which nothing may escape: a request to end the program ends the event loops, any other error is
/// logged.
template <class Body> void Contained(Body&& body) noexcept
{
    try {
        std::forward<Body>(body)();
    } catch (const ExitRequest& request) {
        ExitState::Note(request.code);
        UncaughtErrors::EndEventLoop();
    } catch (...) {
        UncaughtErrors::Log();
    }
}

/// From Qt to us: every slot, timer, event override runs its body through this. Nothing gets past it.
template <class Body> void Guarded(Body&& body) noexcept
{
    if (ExitState::Pending()) // events of the same pass still arrive after the loop was told to end
        return;
    Contained([&] {
        std::string text;
        try {
            std::forward<Body>(body)();
        } catch (const std::exception& error) {
            UncaughtErrors::Log();
            text = error.what();
        }
        if (!text.empty())
            UncaughtErrors::Show(text); // outside the handler: it runs an event loop of its own
    });
}

/// From us to Qt, wherever Qt may call our handlers before it returns: boxes, dialogs, menus, close, waits. A request
/// to end the program that was made meanwhile is carried on.
template <class Call> auto ThroughQt(Call&& call)
{
    ExitState::RethrowIfPending();
    if constexpr (std::is_void_v<decltype(call())>) {
        std::forward<Call>(call)();
        ExitState::RethrowIfPending();
    } else {
        auto result = std::forward<Call>(call)();
        ExitState::RethrowIfPending();
        return result;
    }
}

}
