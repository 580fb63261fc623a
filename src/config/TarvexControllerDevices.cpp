#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Version.h"
#include "config/InitFileQueries.h"
#include "config/MapFile.h"
#include "config/MinInitVersion.h"
#include "config/RegisterMapReader.h"
#include "config/TarvexController.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"
#include "platform/xml/XmlFiles.h"

#include <algorithm>
#include <utility>

namespace tarvex {

namespace {

constexpr std::size_t kComparedLetters = 6;

[[noreturn]] void RaiseInvalid(const std::string& text)
{
    Raise(ObjectError(6), "TarvexController::InitDeviceFromFile", text);
}

XmlElement FirstComponent(XmlElement root)
{
    const auto components = FunctionalComponents(root);
    return components.empty() ? XmlElement() : components.front();
}

XmlElement DescriptionFor(XmlElement component, const std::string& deviceName)
{
    const auto descriptions = ProductDescriptions(component, kAllOptions);
    for (const XmlElement description : descriptions)
        if (description.ChildContent("Name") == deviceName)
            return description;
    return descriptions.empty() ? XmlElement() : descriptions.front();
}

std::string LowerVersion(const std::string& left, const std::string& right)
{
    return IsVersionAtLeast(left, right) ? right : left;
}

}

bool TarvexController::IConfigController_InitDevice(const std::string& name)
{
    const auto tree = InitTree(); // those who hear of the product look further things up in it
    if (!LoadDevice(name))
        return false;
    RaiseProductChanged();
    return true;
}

bool TarvexController::LoadDevice(const std::string& name)
{
    const auto tree = InitTree();
    const auto [component, description] = FindDevice(tree->Root(), name);
    if (!description)
        return false;
    DeviceMap built = RegisterMapReader({initFilePath_, initFilePath_, false}).Read(component, description);
    std::swap(device_, built);
    initFile_->ReleaseTree();
    return true;
}

void TarvexController::RaiseProductChanged()
{
    const std::string name = device_.deviceName; // a handler may choose another device
    CurrentProductChanged.Raise(vendorId_, device_.productId, name);
}

bool TarvexController::IConfigController_ConnectDevice(const std::string& path, IDevice& device)
{
    if (device.ConnectToPath(path) == 0)
        return false;
    const std::string product = device.productName();
    const auto match = std::find_if(deviceNames_.begin(), deviceNames_.end(), [&product](const std::string& name) {
        return ContainsIgnoringCase(product, name.substr(0, kComparedLetters));
    });
    if (match == deviceNames_.end()) {
        prompts_.Tell("Successful connection to " + product + " but unable to find product in initialization file " +
                      initFilePath_ + ".  Disconnecting from " + product + ".");
        device.Disconnect();
        return false;
    }
    InitConnected(std::string(*match), device); // a handler may have the list of names read anew
    return true;
}

void TarvexController::InitConnected(const std::string& name, IDevice& device)
{
    bool loaded = false;
    try {
        loaded = LoadDevice(name);
    } catch (const Error&) {
        errorLog_.LogCurrentError();
    }
    if (!loaded) {
        device.Disconnect(); // the registers at hand are not those of its board
        Raise(ObjectError(0x12C), "TarvexController::ConnectDevice", "Unable to initialize product " + name);
    }
    RaiseProductChanged();
    RaiseProductChanged(); // once for the device that was initialised and once for the connection
}

bool TarvexController::IConfigController_InitDeviceFromFile(const std::string& path)
{
    try {
        DeviceMap built = ReadDataFile(path);
        std::swap(device_, built);
    } catch (const std::exception&) {
        errorLog_.LogCurrentError();
        return false;
    }
    // The file is in use from here on; what goes wrong in a view is that view's error and reaches the caller.
    const std::string name = device_.deviceName;
    DataFileOpened.Raise(name, std::string(path)); // the caller's text may change with a handler
    return true;
}

DeviceMap TarvexController::ReadDataFile(const std::string& path) const
{
    XmlDocument document;
    if (!LoadXmlFile(files_, path, document)) {
        errorLog_.LogError(path + ": " + document.LastErrorText(), ObjectError(6),
                           "TarvexController::InitDeviceFromFile");
        RaiseInvalid("Unable to load data file " + path);
    }
    CheckDataFile(document.Root(), path);
    const XmlElement component = FirstComponent(document.Root());
    DeviceMap built =
        RegisterMapReader({initFilePath_, path, true}).Read(component, DescriptionFor(component, device_.deviceName));
    for (const auto& loaded : built.map.registers)
        loaded->IsDirty(true);
    return built;
}

void TarvexController::CheckDataFile(XmlElement root, const std::string& path) const
{
    if (root.Tag() != kDataFileRoot)
        RaiseInvalid("File " + path + " is not a data file.  Must have root tag of " + kDataFileRoot);
    // Every view saves with the minimum of its product, so that is what every view accepts.
    const XmlElement component = FirstComponent(root);
    const std::string product(DescriptionFor(component, device_.deviceName).ChildContent("Name"));
    const std::string minimum = LowerVersion(state_.g_minInitVersion, MinInitVersionForProduct(product));
    if (!IsVersionAtLeast(root.Attribute("version"), minimum))
        RaiseInvalid("File version does not meet minimum of " + minimum);
    if (FunctionalComponents(root).size() > 1)
        RaiseInvalid("Invalid file " + path + " has more than on FunctionalComponent tag.");
    const std::string name(component.ChildContent("Name"));
    if (!component || std::find(componentNames_.begin(), componentNames_.end(), name) == componentNames_.end())
        Raise(ObjectError(0xD), "TarvexController::InitDeviceFromFile",
              "Cannot locate product " + name + " in init file " + initFilePath_);
}

}
