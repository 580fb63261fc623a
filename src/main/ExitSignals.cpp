#include "main/ExitSignals.h"

#include "base/ExitRequest.h"
#include "ui/common/Guarded.h"

#include <QApplication>
#include <QDialog>

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarvex {

namespace {

std::array<int, 2> g_pipe{-1, -1}; // a signal handler can reach nothing else

constexpr std::array<int, 3> kSignals{SIGTERM, SIGINT, SIGHUP}; // the last when the terminal goes
constexpr std::chrono::milliseconds kCancelPause{50};

/// Long work, or work that waits for an answer, would keep the program from ending.
void CancelWork(BusyState& busy)
{
    busy.Cancel();
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()); dialog != nullptr && busy.IsBusy())
        dialog->reject();
}

void HandleSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = write(g_pipe[1], &byte, 1);
}

}

ExitSignals::ExitSignals(BusyState& busy)
{
    if (pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this, &busy] {
        notifier_->setEnabled(false);
        Guarded([&] { busy.WhenIdle("ExitSignal", [] { ExitApplication(0); }); });
        cancelling_.start(kCancelPause);
    });
    QObject::connect(&cancelling_, &QTimer::timeout, &cancelling_, [&busy] { CancelWork(busy); });
    for (const int number : kSignals)
        std::signal(number, HandleSignal);
}

ExitSignals::~ExitSignals()
{
    for (const int number : kSignals)
        std::signal(number, SIG_DFL);
    for (int& end : g_pipe) {
        close(end);
        end = -1;
    }
}

}
