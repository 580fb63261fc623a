#pragma once

namespace tarvex {

// The codes with which the program ends.
inline constexpr int kExitNormal = 0;
inline constexpr int kExitUnknownSwitch = 1;
inline constexpr int kExitInitFile = 2;
inline constexpr int kExitBatchEnds = 2;
inline constexpr int kExitBatchWithoutFile = 5;
inline constexpr int kExitViewFailed = 7; ///< the window that was asked for cannot be shown
inline constexpr int kExitMissing = 8;    ///< a library or a display
inline constexpr int kExitNoDemo = 9;     ///< the product has no simulated enclosure

/// Carries "end the program with this code" up to main or to the nearest event-loop boundary, destroying what lies
/// between. Not a std::exception, so that no handler of errors can take it for one.
struct ExitRequest {
    int code;
};

/// Whether the end of the program was asked for, and with which code. It is the one value that belongs to the process
/// itself: nested event loops learn from it that they have to unwind.
class ExitState {
public:
    static bool Pending() noexcept;
    /// The code of the first request; 0 while none is pending.
    static int Code() noexcept;
    /// The window that asked and must not be unloaded again, or none.
    static const void* KeptWindow() noexcept;
    /// Remembers a request; only the first one counts.
    static void Note(int code, const void* keep = nullptr) noexcept;
    /// Throws the pending request again, if there is one. Never called from a destructor.
    static void RethrowIfPending();
    /// Forgets the request; for tests, which end "the program" many times in one process.
    static void Reset() noexcept;
};

/// The one way out of the program: remembers the code (the first one wins) and unwinds. Open windows except `keep` are
/// unloaded and the document ends on the way.
[[noreturn]] void ExitApplication(int code, const void* keep = nullptr);

}
