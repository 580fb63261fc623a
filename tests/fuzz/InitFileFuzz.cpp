#include "Fuzz.h"

#include "comm/DemoDevice.h"
#include "config/TarvexController.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"
#include "support/ClosedPrompts.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeProgress.h"

namespace tarvex {

namespace {

constexpr const char* kPath = "/tmp/Tarvex.xml";

/// Reads one file as the program would: as its init file and as a data file. Anything but an Error that gets out of an
/// operation is a finding.
class Reading {
public:
    explicit Reading(std::string_view text) { files_.files[kPath] = text; }

    void Run()
    {
        bool isOpen = false;
        Try([&] { isOpen = initFile_->InitToRead(kPath); });
        Require(isOpen == initFile_->IsInitialized(), "the model is in use when its file was taken");
        if (isOpen)
            AskModel();
        Try([&] { controller_.Init(initFile_); });
        UseDevices();
        Try([&] { controller_.InitDeviceFromFile(kPath); });
        UseMap();
    }

private:
    template <class Action> static void Try(Action action)
    {
        try {
            action();
        } catch (const Error& error) {
            Require(error.Number() != 0 && !error.Source().empty(), "an error has a number and a source");
        }
    }

    void AskModel()
    {
        std::vector<std::string> products;
        Try([&] { products = initFile_->ProductNameList(); });
        Try([&] { initFile_->CheckVendorID(0x12C5); });
        Try([&] { initFile_->GetProduct(0xA100, 1); });
        Require(initFile_->CheckFileVersion(kPath), "a file that was taken has the version");
        for (const std::string& product : products) {
            Try([&] { initFile_->SupportedCommList(product); });
            Try([&] { controller_.GetCommLinkNames(product); });
            Try([&] { initFile_->CheckForProduct(kPath, product); });
        }
    }

    void UseDevices()
    {
        std::vector<std::string> devices;
        Try([&] { devices = controller_.GetDeviceNames(kAllOptions, kRegisterProtocol); });
        Try([&] { controller_.GetComponentProductNames(); });
        for (const std::string& device : devices) {
            const std::int16_t before = controller_.GetI2CRegisterCount();
            bool isTaken = false;
            Try([&] { isTaken = controller_.InitDevice(device); });
            Require(isTaken || controller_.GetI2CRegisterCount() == before, "a bad map leaves the running one");
            UseMap();
        }
    }

    void UseMap()
    {
        for (std::int16_t i = 0; i < controller_.GetI2CRegisterCount(); ++i) {
            const std::string name = controller_.GetI2CRegister(i)->Name();
            Require(controller_.GetI2CRegisterIndex(name) == i, "a register is found by its name");
            Try([&] { controller_.ReadI2CRegister(device_, name, -1); });
            Try([&] { controller_.WriteI2CRegister(device_, name, -1); });
        }
        for (std::int16_t i = 0; i < controller_.GetPropertyCount(); ++i)
            Require(controller_.GetProperty(i) != nullptr, "every property is there");
    }

    ProgramState state_;
    FakeFileSystem files_;
    FakeErrorLog errorLog_;
    ClosedPrompts prompts_;
    FakeProgress progress_;
    DemoDevice device_{prompts_};
    std::shared_ptr<TarvexData> initFile_ = std::make_shared<TarvexData>(state_, files_);
    TarvexController controller_{state_, files_, errorLog_, prompts_, progress_, progress_};
};

}

void Check(std::string_view text) { Reading(text).Run(); }

}
