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
    : image_([this](const RegisterObject&) { return Aspi(); }), dialogs_(std::move(dialogs)),
      elements_([this](RegisterObject&) { return Aspi(); }), menu_(settings, *dialogs_, [this] { MakeCurrentAgain(); }),
      flash_(menu_, Steps())
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
        image_.Forget();
        return link.RestoreCache();
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
    host_->EnsureLink();
    return true;
}

void AnalogTx::SetCurrentProduct(const std::string& product)
{
    host_->View().ShowTree(IsServed(product) ? NavigationTreeOf(product) : std::vector<TreeNode>());
    host_->View().SelectNode(product);
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
    return BoardLoading(*host_, controller.deviceName(), Aspi()).Load(path);
}

void AnalogTx::MakeCurrentAgain()
{
    IConfigController& controller = host_->Controller();
    const NodeIdGuard kept(controller);
    controller.InitDevice(kProduct);
    image_.Forget();
}

void AnalogTx::r_document_CommLinkChanged(const std::shared_ptr<IDevice>&) { menu_.ehSerialZorbus_Connected(kNoPort); }

void AnalogTx::Unload()
{
    linkChanged_.Reset();
    menu_.Unload();
}

}
