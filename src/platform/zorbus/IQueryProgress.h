#pragma once

namespace tarvex {

/// The small window over the main window that is there while the serial network is searched.
class IQueryProgress {
public:
    virtual ~IQueryProgress() = default;

    /// Shows the window and forgets an earlier cancellation; it lives while the caller waits.
    virtual void ShowQueryProgress() = 0;
    virtual void CloseQueryProgress() noexcept = 0;
    /// True once the user gave up the search that the window was last shown for.
    virtual bool QueryCancelled() const = 0;
};

}
