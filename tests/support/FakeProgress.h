#pragma once

#include "config/IProgress.h"

#include <vector>

namespace tarvex {

/// Keeps the status texts and the progress of one window.
class FakeProgress : public IStatusLine, public IProgress {
public:
    void DisplayStatusMessage(const std::string& text) override { status.push_back(text); }

    std::vector<std::string> status;
    std::vector<std::string> progress;

private:
    void IProgress_SetRange(std::int32_t steps, std::int32_t start) override
    {
        progress.push_back(std::to_string(start) + " of " + std::to_string(steps));
    }
    void IProgress_TickProgress(std::int32_t steps) override { progress.push_back("tick " + std::to_string(steps)); }
    void IProgress_Show(bool visible) override { progress.emplace_back(visible ? "show" : "hide"); }
};

}
