#include "support/driver/Commands.h"
#include "support/driver/Protocol.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGenericPlugin>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <exception>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace tarvex::driver {

using namespace std::chrono_literals;

/// Carries out the commands that arrive on the socket, inside the program's own event loop. An input is answered when
/// its handlers have ended, or after a short while when they have not: then a box or a wait is open.
class Driver : public QObject {
public:
    Driver() : notifier_(kDescriptor, QSocketNotifier::Read)
    {
        fcntl(kDescriptor, F_SETFD, FD_CLOEXEC);
        QObject::connect(&notifier_, &QSocketNotifier::activated, this, [this] { Receive(); });
        QTimer::singleShot(0, this, [this] { Answer({"ok", "ready"}); });
    }

private:
    /// One command whose answer is still owed.
    struct Pending {
        Fields command;
        bool answered = false;
        QElapsedTimer since;
    };
    using PendingPtr = std::shared_ptr<Pending>;

    void Receive()
    {
        const std::string line = ReceiveLine(kDescriptor);
        if (line.empty())
            notifier_.setEnabled(false); // the client is gone; the program goes on as it would without us
        else
            Start(ToFields(line));
    }

    void Start(Fields command)
    {
        auto pending = std::make_shared<Pending>();
        pending->command = std::move(command);
        pending->since.start();
        if (pending->command.at(0) == "wait") {
            Await(pending);
        } else {
            QTimer::singleShot(0, this, [this, pending] { Run(pending); });
            if (IsInput(pending->command))
                QTimer::singleShot(60ms, this, [this, pending] { Finish(pending, {"ok", "pending"}); });
        }
    }

    void Run(const PendingPtr& pending)
    {
        try {
            Finish(pending, {"ok", RunCommand(pending->command)});
        } catch (const std::exception& error) {
            Finish(pending, {"error", error.what()});
        }
    }

    void Await(const PendingPtr& pending)
    {
        if (ConditionHolds(pending->command))
            Finish(pending, {"ok", ""});
        else if (pending->since.elapsed() > 20'000)
            Finish(pending, {"error", "waited in vain; there are: " + VisibleWindows()});
        else
            QTimer::singleShot(5ms, this, [this, pending] { Await(pending); });
    }

    void Finish(const PendingPtr& pending, const Fields& answer)
    {
        if (!pending->answered)
            Answer(answer);
        pending->answered = true;
    }

    static void Answer(const Fields& answer)
    {
        const std::string line = ToLine(answer);
        [[maybe_unused]] const auto sent = write(kDescriptor, line.data(), line.size());
    }

    QSocketNotifier notifier_;
};

/// Brings the driver into an unmodified program that was started with this plug-in named in its environment.
class DriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver.json")
public:
    QObject* create(const QString&, const QString&) override
    {
        for (const char* name : {"QT_QPA_GENERIC_PLUGINS", "QT_PLUGIN_PATH"})
            qunsetenv(name); // not for what the program starts
        return new Driver;
    }
};

}

#include "DriverPlugin.moc"
