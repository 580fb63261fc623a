#include "ui/wizards/analogtx/AnalogTx.h"

#include "base/Error.h"
#include "comm/SerialZorbus.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "ui/wizards/frame/BoardLoading.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/NavigationTree.h"
#include "ui/wizards/frame/NodeIdGuard.h"

#include <utility>

namespace tarvex {

namespace {

constexpr const char* kProduct = "Ossary-Plus";
constexpr std::int16_t kAspi = 1; ///< of the board's one signal processor
constexpr std::int32_t kNoPort = 0;

FlashTexts AllFlashTexts()
{
    return {"AnalogTx Save To System",    "AnalogTx Save to System",    "Settings restored.",
            " AnalogTx Restore Settings", " AnalogTx Restore Settings", "Failed to restore from flash."};
}

bool IsServed(const std::string& product) { return product == "Vexlon" || product == kProduct; }

}

AnalogTx::AnalogTx(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs)
    : dialogs_(std::move(dialogs)), elements_([this](RegisterObject&) { return Aspi(); }),
      menu_(settings, *dialogs_, [this] { MakeCurrentAgain(); }), flash_(menu_, Steps())
{}

WizardDescription AnalogTx::Describe()
{
    WizardDescription description;
    description.windowName = "AnalogTx_Wizard";
    description.viewName = "Ossary-Plus Wizard";
    description.designCaption = "AnalogTx - Display Adjustments";
    description.realLink = kSerialDeviceType;
    description.failureHelpTip = "CommunicationFailure_SerialZorbus.rtf";
    description.options = {flash_.SaveEntry("Save to System"), flash_.RestoreEntry("Restore Current System Settings"),
                           menu_.SettingsEntry("Serial Port Settings"), menu_.PortEntry("&Disable COM x"),
                           menu_.LoggingEntry("Start Logging")};
    description.offOnFailure = {"File", "Edit", "SyncToFlash", "RestoreFlash", "StartLogging", "SerialPortSettings"};
    return description;
}

FlashSteps AnalogTx::Steps()
{
    const auto restore = [this](SerialZorbus& link) {
        const bool restored = link.RestoreCache();
        if (restored)
            known_ = Knowledge::None;
        return restored;
    };
    return {[](SerialZorbus& link) { return link.ResetCache(); }, restore, AllFlashTexts};
}

void AnalogTx::Attach(IWizardHost& host)
{
    host_ = &host;
    elements_.Attach(host);
    menu_.Attach(host);
    flash_.Attach(host);
}

bool AnalogTx::Init(const std::shared_ptr<IProduct>&)
{
    linkChanged_ = host_->TheDocument().CommLinkChanged.Subscribe(
        [this](const std::shared_ptr<IDevice>& device) { r_document_CommLinkChanged(device); });
    menu_.HandOverSettings();
    // The main window reads the transmitter when the link to it comes up.
    if (!host_->EnsureLink() || !menu_.Link())
        known_ = Knowledge::None;
    return true;
}

void AnalogTx::SetCurrentProduct(const std::string& product)
{
    host_->View().ShowTree(IsServed(product) ? NavigationTreeOf(product) : std::vector<TreeNode>());
    host_->View().SelectNode(product);
}

void AnalogTx::MenusEnabled(bool enabled)
{
    menu_.MenusEnabled(enabled);
    if (!enabled) // the board may come back with other values
        known_ = Knowledge::None;
}

void AnalogTx::NodeClicked(const std::string& key)
{
    if (key == kProduct && host_->CheckConnection())
        host_->SelectAgain();
}

std::int16_t AnalogTx::Aspi() const
{
    const bool isOnNetwork = host_->Device().DeviceType() == kSerialDeviceType;
    return isOnNetwork && host_->Controller().deviceName() == kProduct ? kAspi : kNoAspi;
}

/// One register that cannot be read does not keep the others from being adjusted.
void AnalogTx::CatchUp()
{
    if (known_ == Knowledge::None)
        ReadRegisters();
}

void AnalogTx::ReadRegisters()
{
    IConfigController& controller = host_->Controller();
    const auto busy = host_->Services().beginBusy();
    const int before = host_->Failures();
    known_ = Knowledge::Incomplete;
    for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i)
        controller.GetI2CRegister(i)->ReadValue(host_->Device(), Aspi());
    if (host_->Failures() == before)
        known_ = Knowledge::Complete;
}

bool AnalogTx::WriteElement(const std::string& element, std::int32_t value)
{
    elements_.Write(element, value);
    return true;
}

std::string AnalogTx::ValueText(const std::string& element, std::int32_t position)
{
    return BitsetElements::ValueText(element, position);
}

std::string AnalogTx::HelpPicture(const std::string&)
{
    return host_->Controller().deviceName() == kProduct ? "QX_ATx_splash.jpg" : "";
}

std::string AnalogTx::UnreadMessage(const std::string& element)
{
    return "Failed to get current status of " + element + " setting.";
}

bool AnalogTx::OpenFile(const std::string& path)
{
    IConfigController& controller = host_->Controller();
    const NodeIdGuard kept(controller);
    const bool isLoaded = BoardLoading(*host_, controller.deviceName(), Aspi()).Load(path);
    if (isLoaded)
        known_ = Knowledge::Complete;
    return isLoaded;
}

/// A file is saved from the registers: they must not hold anything that the board does not have.
bool AnalogTx::AddToFile(TarvexData&)
{
    if (host_->EnsureLink() && known_ == Knowledge::Incomplete)
        ReadRegisters();
    return known_ == Knowledge::Complete;
}

void AnalogTx::MakeCurrentAgain()
{
    IConfigController& controller = host_->Controller();
    const NodeIdGuard kept(controller);
    controller.InitDevice(kProduct);
    known_ = Knowledge::None;
}

void AnalogTx::r_document_CommLinkChanged(const std::shared_ptr<IDevice>&)
{
    known_ = Knowledge::None;
    menu_.ehSerialZorbus_Connected(kNoPort);
}

void AnalogTx::Unload()
{
    linkChanged_.Reset();
    menu_.Unload();
}

}
