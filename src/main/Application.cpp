#include "main/Application.h"

#include "base/ExitRequest.h"
#include "base/Text.h"
#include "comm/DemoDevice.h"
#include "comm/HIDDevice.h"
#include "comm/SerialZorbus.h"
#include "main/ExitSignals.h"
#include "main/ProgramPaths.h"
#include "platform/SystemClock.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/hid/HidServices.h"
#include "platform/xml/XmlDocument.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "shell/ErrorLog.h"
#include "shell/InitFileSearch.h"
#include "shell/SelfTest.h"
#include "shell/Startup.h"
#include "shell/window/UT_OutputWindow.h"
#include "ui/advanced/AdvancedForm.h"
#include "ui/common/DeviceChanges.h"
#include "ui/common/Guarded.h"
#include "ui/common/QtWait.h"
#include "ui/common/SettingsStore.h"
#include "ui/common/WindowTools.h"
#include "ui/prompts/UserPrompts.h"
#include "ui/wizards/analogtx/AnalogTx_Wizard.h"
#include "ui/wizards/cendra/Cendra_Wizard.h"
#include "ui/wizards/vexlon/Vexlon_Wizard.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace tarvex {

namespace {

/// All parts of the program in the order in which they need each other; they die in the opposite order.
class Application {
public:
    explicit Application(const std::string& commandLine)
        : state_(StateOfThisProcess()), errorLog_(files_, "TarvexError.log"), packetLog_(files_, clock_), wait_(busy_),
          prompts_(files_.FindOwnFile(state_.programFolder + "/" + kHelpFileName)), hidServices_(wait_),
          settings_(SettingsStore::DefaultPath(state_.programFileName)),
          mainWindow_(
              {state_, preferences_, settings_, files_, clock_, prompts_, errorLog_, wait_, busy_, deviceChanges_}),
          startup_(Services(commandLine), Libraries(), settings_, mainWindow_), signals_(busy_)
    {
        UncaughtErrors::Install(&errorLog_, &prompts_);
    }

    ~Application()
    {
        if (ExitState::KeptWindow() != &mainWindow_)
            mainWindow_.Unload();
        UncaughtErrors::Install(nullptr, nullptr);
    }

    int Run()
    {
        QTimer::singleShot(0, &mainWindow_, [this] {
            Guarded([this] { startup_.Run(); });
            Guarded(EndIfNothingIsShown);
        });
        QApplication::exec();
        return ExitState::Code();
    }

private:
    /// Start-up failed after it told why: a program without a window could not be ended.
    static void EndIfNothingIsShown()
    {
        const auto windows = QApplication::topLevelWidgets();
        if (std::none_of(windows.begin(), windows.end(), [](const QWidget* each) { return each->isVisible(); }))
            ExitApplication(kExitViewFailed);
    }

    DocumentServices Services(const std::string& commandLine)
    {
        DocumentServices services{state_,       files_, errorLog_, packetLog_, prompts_,
                                  preferences_, {},     {},        {},         commandLine};
        services.links[kDemoLink] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        services.links[kHidDeviceType] = [this] {
            return std::make_shared<HIDDevice>(hidServices_, packetLog_, prompts_);
        };
        services.links[kSerialDeviceType] = [this] {
            return std::make_shared<SerialZorbus>(SerialZorbusServices{[this] { return NorvaneSystem(); }, state_,
                                                                       packetLog_, errorLog_, prompts_, wait_,
                                                                       zoneRest_},
                                                  preferences_.serial);
        };
        services.wizards[WizardKind::Vexlon] = [this] { return std::make_unique<Vexlon_Wizard>(WindowServices()); };
        services.wizards[WizardKind::Cendra] = [this] {
            return std::make_unique<Cendra_Wizard>(WindowServices(), preferences_.serial);
        };
        services.wizards[WizardKind::AnalogTx] = [this] {
            return std::make_unique<AnalogTx_Wizard>(WindowServices(), preferences_.serial);
        };
        services.selfTest = [this](const std::string& reportFile) {
            selfTestWindow_ = std::make_unique<UT_OutputWindow>(prompts_);
            selfTestWindow_->show();
            RunSelfTest(reportFile, *selfTestWindow_, {state_, files_, clock_, errorLog_});
        };
        return services;
    }

    WizardWindowServices WindowServices() { return {state_, files_, clock_, prompts_, errorLog_, wait_, busy_}; }

    Dependencies Libraries()
    {
        return {XmlDocument::Version, [this] { return NorvaneSystem(); }};
    }

    /// One network for all who use it: what was written through one link is there for the next.
    std::shared_ptr<INorvaneSystem> NorvaneSystem()
    {
        if (!norvaneSystem_)
            norvaneSystem_ =
                std::make_shared<SimulatedNorvaneSystem>(NetworkFilesOfThisRun(state_.programFolder, state_.rootFolder),
                                                         SimulatedNorvaneSystem::Services{&files_, &wait_, &errorLog_});
        return norvaneSystem_;
    }

    ProgramState state_;
    PosixFileSystem files_;
    SystemClock clock_;
    ErrorLog errorLog_;
    PacketLog packetLog_;
    Preferences preferences_;
    BusyState busy_;
    QtWait wait_;
    UserPrompts prompts_;
    HidServices hidServices_;
    ZoneRest zoneRest_;
    std::shared_ptr<INorvaneSystem> norvaneSystem_;
    DeviceChanges deviceChanges_;
    SettingsStore settings_;
    std::unique_ptr<UT_OutputWindow> selfTestWindow_; ///< none but in the self-test
    AdvancedForm mainWindow_;
    Startup startup_;
    ExitSignals signals_;
};

}

int RunApplication(const std::string& commandLine)
{
    QApplication::setQuitOnLastWindowClosed(false); // a wizard runs with the main window hidden
    Application application(commandLine);
    QApplication::setWindowIcon(QIcon(QApplication::applicationDirPath() + "/Images/tarvex.png"));
    return application.Run();
}

}
