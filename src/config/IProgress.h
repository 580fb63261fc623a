#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// Where the progress of long work is shown. The main window and the wizards are such places.
class IProgress {
public:
    virtual ~IProgress() = default;

    /// A new run of `steps` steps, beginning at position `start`.
    void SetRange(std::int32_t steps, std::int32_t start) { IProgress_SetRange(steps, start); }
    /// Advances by `steps`.
    void TickProgress(std::int32_t steps) { IProgress_TickProgress(steps); }
    void Show(bool visible) { IProgress_Show(visible); }

private:
    virtual void IProgress_SetRange(std::int32_t steps, std::int32_t start) = 0;
    virtual void IProgress_TickProgress(std::int32_t steps) = 0;
    virtual void IProgress_Show(bool visible) = 0;
};

/// A line for status messages; the main window has one.
class IStatusLine {
public:
    virtual ~IStatusLine() = default;
    virtual void DisplayStatusMessage(const std::string& text) = 0;
};

}
