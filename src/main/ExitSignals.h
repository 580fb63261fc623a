#pragma once

#include "ui/common/BusyState.h"

#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <memory>

namespace tarvex {

/// Turns SIGTERM, SIGINT and SIGHUP into a request to end the program with code 0, so that preferences are saved and
/// working copies deleted. While a sequence of transfers runs it is asked to stop early, a question that it asks counts
/// as cancelled, and the request waits for its end.
class ExitSignals {
public:
    explicit ExitSignals(BusyState& busy);
    ~ExitSignals();
    ExitSignals(const ExitSignals&) = delete;
    ExitSignals& operator=(const ExitSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer cancelling_;
};

}
