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
    : SerialWizardProduct(settings, std::move(dialogs), StepsOf(*this), [this] { MakeCurrentAgain(); })
{}

WizardDescription AnalogTx::Describe()
{
    WizardDescription description = SerialDescription();
    description.windowName = "AnalogTx_Wizard";
    description.viewName = "Ossary-Plus Wizard";
    description.designCaption = "AnalogTx - Display Adjustments";
    description.options = {flash_.SaveEntry("Save to System"), flash_.RestoreEntry("Restore Current System Settings"),
                           menu_.SettingsEntry("Serial Port Settings"), menu_.PortEntry("&Disable COM x"),
                           menu_.LoggingEntry("Start Logging")};
    description.offOnFailure = {"File", "Edit", "SyncToFlash", "RestoreFlash", "StartLogging", "SerialPortSettings"};
    return description;
}

FlashSteps AnalogTx::StepsOf(AnalogTx& product)
{
    const auto restore = [&product](SerialZorbus& link) {
        product.image_.Forget();
        return link.RestoreCache();
    };
    return {[](SerialZorbus& link) { return link.ResetCache(); }, restore, AllFlashTexts};
}

bool AnalogTx::Init(const std::shared_ptr<IProduct>&)
{
    linkChanged_ = Host().TheDocument().CommLinkChanged.Subscribe(
        [this](const std::shared_ptr<IDevice>& device) { r_document_CommLinkChanged(device); });
    menu_.HandOverSettings();
    Host().EnsureLink();
    return true;
}

void AnalogTx::SetCurrentProduct(const std::string& product)
{
    Host().View().ShowTree(IsServed(product) ? NavigationTreeOf(product) : std::vector<TreeNode>());
    Host().View().SelectNode(product);
}

void AnalogTx::NodeClicked(const std::string& key)
{
    if (key == kProduct && Host().CheckConnection())
        Host().SelectAgain();
}

std::int16_t AnalogTx::Aspi() const
{
    const bool isOnNetwork = Host().Device().DeviceType() == kSerialDeviceType;
    return isOnNetwork && Host().Controller().deviceName() == kProduct ? kAspi : kNoAspi;
}

std::string AnalogTx::HelpPicture(const std::string&)
{
    return Host().Controller().deviceName() == kProduct ? "QX_ATx_splash.jpg" : "";
}

bool AnalogTx::OpenFile(const std::string& path)
{
    IConfigController& controller = Host().Controller();
    const NodeIdGuard kept(controller);
    return BoardLoading(Host(), controller.deviceName(), Aspi()).Load(path);
}

void AnalogTx::MakeCurrentAgain()
{
    image_.Forget();
    if (!Host().MayDropEdits()) // which the new registers would not have
        return;
    IConfigController& controller = Host().Controller();
    const NodeIdGuard kept(controller);
    controller.InitDevice(kProduct);
}

void AnalogTx::r_document_CommLinkChanged(const std::shared_ptr<IDevice>&) { menu_.ehSerialZorbus_Connected(kNoPort); }

void AnalogTx::Unload()
{
    linkChanged_.Reset();
    SerialWizardProduct::Unload();
}

}
