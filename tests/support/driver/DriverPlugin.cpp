#include "support/driver/Commands.h"
#include "support/driver/Protocol.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QGenericPlugin>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <exception>
#include <iostream>
#include <unistd.h>
#include <utility>

namespace tarvex::driver {

using namespace std::chrono_literals;

/// Carries out the commands that arrive on the socket, inside the program's own event loop. An input is answered when
/// its handlers have ended, or after a short while when they have not: then a box or a wait is open.
class Driver : public QObject {
public:
    Driver() : notifier_(STDIN_FILENO, QSocketNotifier::Read)
    {
        QObject::connect(&notifier_, &QSocketNotifier::activated, this, [this] { Receive(); });
        QTimer::singleShot(0, this, [this] { Answer(0, {"ok", "ready"}); });
        beat_.start(kBeat);
        sinceBeat_.start();
        QObject::connect(&beat_, &QTimer::timeout, this,
                         [this] { latestBeat_ = std::max(latestBeat_, sinceBeat_.restart() - kBeat.count()); });
    }

private:
    void Receive()
    {
        std::string line;
        if (!std::getline(std::cin, line))      // one command at a time
            return notifier_.setEnabled(false); // the client is gone; the program goes on as it would without us
        const Fields command = ToFields(line);
        const int id = owed_ = ++last_;
        if (command.at(0) == "beat")
            return Answer(id, {"ok", std::to_string(std::exchange(latestBeat_, 0))});
        if (command.at(0) == "wait")
            return Await(id, command, QDeadlineTimer(20s));
        QTimer::singleShot(0, this, [this, id, command] { Run(id, command); });
        if (IsInput(command))
            QTimer::singleShot(60ms, this, [this, id] { Answer(id, {"ok", "pending"}); });
    }

    void Run(int id, const Fields& command)
    {
        try {
            Answer(id, {"ok", RunCommand(command)});
        } catch (const std::exception& error) {
            Answer(id, {"error", error.what()});
        }
    }

    void Await(int id, const Fields& command, QDeadlineTimer limit)
    {
        if (ConditionHolds(command))
            Answer(id, {"ok", ""});
        else if (limit.hasExpired())
            Answer(id, {"error", "waited in vain"});
        else
            QTimer::singleShot(5ms, this, [this, id, command, limit] { Await(id, command, limit); });
    }

    /// Answers a command unless it has been answered.
    void Answer(int id, const Fields& answer)
    {
        if (id != owed_)
            return;
        owed_ = -1;
        const std::string line = ToLine(answer);
        [[maybe_unused]] const auto sent = write(kDescriptor, line.data(), line.size());
    }

    static constexpr std::chrono::milliseconds kBeat{10};
    QTimer beat_;
    QElapsedTimer sinceBeat_;
    qint64 latestBeat_ = 0; ///< milliseconds by which a beat came too late, at worst, since it was asked for

    int last_ = 0; ///< commands so far; the first answer says that the program runs
    int owed_ = 0; ///< the command whose answer is due
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
