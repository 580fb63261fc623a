#pragma once

#include "platform/IUserPrompts.h"
#include "platform/zorbus/IQueryProgress.h"

#include <memory>

namespace tarvex {

/// The query-progress window as the serial link knows it, shown through the prompts. Main owns it.
class NetworkQuery : public IQueryProgress {
public:
    explicit NetworkQuery(IUserPrompts& prompts) : prompts_(prompts) {}

    void ShowQueryProgress() override
    {
        cancelled_ = false;
        window_ = prompts_.ShowQueryProgress();
    }
    void CloseQueryProgress() noexcept override
    {
        cancelled_ = QueryCancelled();
        window_.reset();
    }
    bool QueryCancelled() const override { return window_ ? window_->Cancelled() : cancelled_; }

private:
    IUserPrompts& prompts_;
    std::unique_ptr<IQueryWindow> window_;
    bool cancelled_ = false;
};

}
