#include "base/ExitRequest.h"

#include <optional>

namespace tarvex {

namespace {

struct Request {
    int code;
    const void* keep;
};

std::optional<Request>& TheRequest() noexcept
{
    static std::optional<Request> request;
    return request;
}

}

bool ExitState::Pending() noexcept { return TheRequest().has_value(); }

int ExitState::Code() noexcept { return Pending() ? TheRequest()->code : 0; }

const void* ExitState::KeptWindow() noexcept { return Pending() ? TheRequest()->keep : nullptr; }

void ExitState::Note(int code, const void* keep) noexcept
{
    if (!Pending())
        TheRequest() = Request{code, keep};
}

void ExitState::RethrowIfPending()
{
    if (Pending())
        throw ExitRequest{Code()};
}

void ExitState::Reset() noexcept { TheRequest().reset(); }

void ExitApplication(int code, const void* keep)
{
    ExitState::Note(code, keep);
    throw ExitRequest{ExitState::Code()};
}

}
