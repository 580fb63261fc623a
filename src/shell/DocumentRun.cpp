#include "base/Error.h"
#include "base/ExitRequest.h"
#include "base/Text.h"
#include "comm/Links.h"
#include "shell/Document.h"
#include "shell/ProductViews.h"

#include <exception>
#include <iostream>

namespace tarvex {

namespace {

constexpr std::int32_t kErrInvalidArgument = ObjectError(6);

/// Why the program ends without having shown a window.
void SayOnTerminal(std::string_view reason) { std::cerr << "Tarvex: " << ReplaceAll(reason, '\n', ' ') << std::endl; }

}

void Document::Run(IMainView& mainView)
{
    mainView_ = &mainView;
    OpenPacketLog();
    controller_ = std::make_unique<TarvexController>(services_.state, services_.files, services_.errorLog,
                                                     services_.prompts, mainView, mainView);
    copies_.SweepLeftovers(initFilepath_);
    ReadInitFile();
    commandLine_ = ParseCommandLine(services_.commandLine, services_.prompts);
    ProcessCommandLineModes();
    SelectCommLink(kDemoLink);
    if (commandLine_.help || commandLine_.selfTest || commandLine_.batch)
        return;
    LogPacketHeader();
    ChooseWorkingFile();
    mainView.Init(*controller_, device_);
    if (commandLine_.wizardProduct.empty())
        ShowMainView();
    else
        StartWizard();
}

void Document::OpenPacketLog()
{
    const ProgramState& state = services_.state;
    services_.files.CreateFolder(state.rootFolder);
    services_.packetLog.OpenPacketLog(state.rootFolder + "/Tarvex_PacketLog_", state.instanceHandle);
}

void Document::ReadInitFile()
{
    try {
        LoadInitFileCopy();
    } catch (const std::exception& failure) {
        services_.errorLog.LogCurrentError();
        RefuseInitFile(failure.what());
    }
    services_.state.g_initFileInfo = "Init file version: " + initFile_->Version() + " (" + initFilepath_ + ")";
}

void Document::LoadInitFileCopy()
{
    constexpr const char* kSource = "Document::Run";
    const std::string copy = copies_.MakeTempCopy(initFilepath_, std::to_string(services_.state.instanceHandle));
    // What stands there without being our copy is somebody else's.
    if (!copies_.Owns(copy))
        Raise(kErrInvalidArgument, kSource, "Unable to copy the initialization file " + initFilepath_ + " to " + copy);
    if (!initFile_->InitToRead(copy))
        Raise(kErrInvalidArgument, kSource,
              "The version of the initialization file " + initFilepath_ + " is below the minimum " +
                  services_.state.g_minInitVersion);
    if (!initFile_->CheckVendorID(kVendorId))
        Raise(kErrInvalidArgument, kSource, "The initialization file " + initFilepath_ + " is of another vendor");
    controller_->Init(initFile_);
}

void Document::RefuseInitFile(std::string_view reason)
{
    SayOnTerminal(reason);
    ExitApplication(kExitInitFile);
}

void Document::ProcessCommandLineModes()
{
    if (commandLine_.selfTest)
        RunSelfTest();
    if (commandLine_.help) {
        ShowUsage(services_.state, services_.prompts);
        ExitApplication(kExitNormal);
    }
    if (commandLine_.batch)
        RunBatch();
}

void Document::RunSelfTest()
{
    if (!services_.selfTest) {
        services_.errorLog.LogError("This program has no self-test", kErrInvalidArgument, "Document::Run");
        ExitApplication(kExitViewFailed);
    }
    services_.selfTest(services_.state.rootFolder + "/Tarvex_UT.txt");
    controller_.reset();
}

void Document::RunBatch()
{
    if (commandLine_.dataFile.empty())
        ExitApplication(kExitBatchWithoutFile);
    targetSaveFileName_ = MakeInitFileCopyForSaving();
    // A self-test before this took the controller away.
    if (controller_)
        controller_->Init(initFile_);
    ExitApplication(kExitBatchEnds);
}

void Document::LogPacketHeader()
{
    services_.packetLog.LogHeader(device_ ? device_->DeviceType() : "", controller_->pid(), kVendorId);
}

void Document::ChooseWorkingFile()
{
    targetSaveFileName_ =
        commandLine_.dataFile.empty() ? MakeInitFileCopyForSaving() : copies_.MakeTempCopy(commandLine_.dataFile, "");
}

std::string Document::MakeInitFileCopyForSaving()
{
    return copies_.MakeTempCopy(initFilepath_, std::to_string(services_.state.instanceHandle) + "_TempSave_");
}

void Document::ShowMainView()
{
    mainView_->ShowView();
    if (!commandLine_.dataFile.empty())
        mainView_->OpenDataFile(commandLine_.dataFile);
}

void Document::StartWizard()
{
    const WizardStart* start = FindWizardStart(commandLine_.wizardProduct);
    if (!start)
        FailWizard("There is no wizard for the product " + commandLine_.wizardProduct);
    try {
        StartWizard(*start);
    } catch (const std::exception& failure) {
        services_.errorLog.LogCurrentError();
        SayOnTerminal(failure.what());
        ExitApplication(kExitViewFailed);
    }
}

void Document::StartWizard(const WizardStart& start)
{
    services_.state.g_minInitVersion = start.minInitVersion;
    IWizardView* wizard = MakeWizard(start.kind);
    if (!wizard)
        FailWizard("There is no wizard for the product " + commandLine_.wizardProduct);
    wizard->SetCaption(start.caption);
    if (start.autoConnect)
        mainView_->SetPrefAutoConnect(true);
    SelectCommLink(start.link);
    if (!controller_->InitDevice(start.deviceName))
        FailWizard("Unable to initialize product " + std::string(start.deviceName));
    if (start.connects)
        ConnectDevice(); // a board that does not answer is shown by the wizard
    if (!wizard->Init(*controller_, device_, *this, start.makeProduct()))
        FailWizard("Unable to initialize the wizard of the product " + std::string(start.product));
    wizard->SetCurrentProduct(start.product);
    wizard->ShowView();
    currentWizard_ = wizard;
}

void Document::FailWizard(const std::string& reason)
{
    services_.errorLog.LogError(reason, kErrInvalidArgument, "Document::Run");
    SayOnTerminal(reason);
    ExitApplication(kExitViewFailed);
}

}
