#include "shell/Startup.h"

#include "base/ExitRequest.h"
#include "shell/InitFileSearch.h"

#include <utility>

namespace tarvex {

namespace {

constexpr std::int32_t kStatusRefreshMilliseconds = 4000;

}

Startup::Startup(DocumentServices services, Dependencies dependencies, ISettingsStore& settings, IMainView& mainView)
    : services_(std::move(services)), dependencies_(std::move(dependencies)), settings_(settings), mainView_(mainView)
{}

Startup::~Startup()
{
    if (document_)
        mainView_.Attach(nullptr);
}

void Startup::Run()
{
    Initialise();
    Load();
    document_->Run(mainView_);
}

void Startup::Initialise()
{
    ProgramState& state = services_.state;
    state.g_dependsHelp = "Try running the registerActiveX_<OS version>.bat in " + state.programFolder + "/../Depends.";
    if (!TestForDependencies(dependencies_, state, services_.prompts))
        ExitApplication(kExitMissing);
    mainView_.InitialiseState();
    state.libraryVersionText.clear();
    state.firmwareVersionText.clear();
    state.g_minInitVersion = "2.4.0";
    mainView_.ShowNetworkAddress(false);
    mainView_.ShowSerialSettings(false);
}

void Startup::Load()
{
    services_.preferences.serial = CommSettings{};
    mainView_.LayOut();
    mainView_.SetStatusRefreshInterval(kStatusRefreshMilliseconds);
    mainView_.HookDeviceChanges();
    mainView_.DisplayStatusMessage("Select a product or Open File");
    LoadPreferences(settings_, services_.preferences);
    mainView_.ApplyPreferences();
    mainView_.EnableTransfers(false);
    mainView_.HideView();
    document_ = std::make_unique<Document>(services_);
    const std::string& folder = services_.state.programFolder;
    mainView_.PrepareFileDialog(folder, folder + "/" + kHelpFileName);
    mainView_.Attach(document_.get());
}

}
