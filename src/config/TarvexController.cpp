#include "config/TarvexController.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "config/IProgress.h"
#include "config/InitFileQueries.h"
#include "config/MapFile.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"

#include <utility>

namespace tarvex {

namespace {

constexpr std::int32_t kErrInvalidFile = ObjectError(6);
constexpr std::int32_t kErrUnknownName = 502;

}

TarvexController::TarvexController(ProgramState& state, IFileSystem& files, IErrorLog& errorLog, IUserPrompts& prompts,
                                   IStatusLine& statusLine, IProgress& progress)
    : state_(state), files_(files), errorLog_(errorLog), prompts_(prompts), statusLine_(statusLine),
      progress_(&progress)
{}

TarvexController::~TarvexController() = default;

void TarvexController::IConfigController_Init(std::shared_ptr<TarvexData> initFile)
{
    if (!initFile)
        Raise(kErrInvalidFile, "TarvexController::Init", "Invalid init TarvexData");
    const std::string path = initFile->Path();
    const std::int32_t vendorId = initFile->VendorID();
    initFile_ = std::move(initFile);
    initFilePath_ = path;
    vendorId_ = vendorId;
    deviceNames_.clear();
    componentNames_.clear();
}

std::shared_ptr<const XmlDocument> TarvexController::InitTree() const
{
    return initFile_ && initFile_->IsInitialized() ? initFile_->Tree() : std::make_shared<const XmlDocument>();
}

std::shared_ptr<const XmlDocument> TarvexController::UsableTree(const char* source) const
{
    auto tree = InitTree();
    if (!tree->Root())
        Raise(kErrInvalidFile, source, "Invalid XML File " + (initFile_ ? initFile_->LastErrorText() : std::string()));
    return tree;
}

std::string TarvexController::IConfigController_GetInitFileVersion()
{
    return std::string(InitTree()->Root().Attribute("version"));
}

std::vector<std::string> TarvexController::IConfigController_GetCommLinkNames(const std::string& product)
{
    std::vector<std::string> names;
    const auto tree = InitTree();
    for (auto link = FindProduct(tree->Root(), product).Child("CommLink"); link; link = link.NextSame())
        if (link.ChildContent("Protocol") == kRegisterProtocol)
            names.emplace_back(link.ChildContent("Name"));
    if (names.empty())
        Raise(kErrFileSyntax, "TarvexController::GetCommLinkNames", "Unable to find comm links for " + product);
    return names;
}

std::vector<std::string> TarvexController::IConfigController_GetDeviceNames(const std::string& option,
                                                                            const std::string&)
{
    static constexpr const char* kSource = "TarvexController::GetDeviceNames";
    if (!deviceNames_.empty())
        return deviceNames_;
    const auto tree = InitTree();
    auto components = ComponentNames(tree->Root());
    if (components.empty())
        Raise(kErrInvalidFile, kSource, "No Functional Components found in the init file");
    componentNames_ = std::move(components);
    auto names = DeviceNames(tree->Root(), option);
    if (names.empty())
        Raise(kErrInvalidFile, kSource, "No boards with the option " + option + " were found in the init file");
    deviceNames_ = names;
    DeviceNamesChanged.Raise(names);
    return names;
}

std::string TarvexController::GetComponentName(const std::string& deviceName)
{
    const auto tree = UsableTree("TarvexController::GetComponentName");
    return std::string(FindDevice(tree->Root(), deviceName).component.ChildContent("Name"));
}

std::vector<std::string> TarvexController::GetComponentProductNames()
{
    return DeviceNames(UsableTree("TarvexController::GetComponentProductNames")->Root(), kAllOptions);
}

void TarvexController::IConfigController_SetProgressBar(IProgress* progress)
{
    if (progress)
        progress_ = progress;
}

std::int16_t TarvexController::IConfigController_GetI2CRegisterCount()
{
    return ToInt16(static_cast<std::int64_t>(device_.map.registers.size()), "TarvexController::GetI2CRegisterCount");
}

std::shared_ptr<RegisterObject> TarvexController::IConfigController_GetI2CRegister(std::int16_t position)
{
    return CheckedAt(device_.map.registers, position, "TarvexController::GetI2CRegister");
}

std::int16_t TarvexController::IConfigController_GetI2CRegisterIndex(const std::string& name)
{
    const auto& names = device_.map.registerNames;
    const std::size_t position = names.Find(device_.map.registers, name);
    return position == names.kNone ? std::int16_t{-1} : static_cast<std::int16_t>(position);
}

std::shared_ptr<RegisterObject> TarvexController::IConfigController_GetI2CRegisterByName(const std::string& name)
{
    return RegisterNamed(name, "TarvexController::GetI2CRegisterByName");
}

std::shared_ptr<RegisterObject> TarvexController::RegisterNamed(const std::string& name, const char* source) const
{
    auto found = device_.map.FindRegister(name);
    if (!found)
        RaiseRuntime(kErrInvalidCall, source);
    return found;
}

std::int16_t TarvexController::IConfigController_GetPropertyCount()
{
    return ToInt16(static_cast<std::int64_t>(device_.map.properties.size()), "TarvexController::GetPropertyCount");
}

std::shared_ptr<TarvexProperty> TarvexController::IConfigController_GetProperty(std::int16_t position)
{
    return CheckedAt(device_.map.properties, position, "TarvexController::GetProperty");
}

std::shared_ptr<TarvexProperty> TarvexController::IConfigController_GetPropertyByName(const std::string& name)
{
    auto found = device_.map.FindProperty(name);
    if (!found)
        Raise(kErrUnknownName, "TarvexProperty::GetPropertyByName", "Invalid property name of " + name);
    return found;
}

std::shared_ptr<Bitset> TarvexController::IConfigController_GetPropertyBitsetByName(const std::string& property,
                                                                                    const std::string& bitset)
{
    auto found = GetPropertyByName(property)->GetBitsetByName(bitset);
    if (!found)
        Raise(kErrUnknownName, "TarvexProperty::GetPropertyBitsetByName", "Invalid bitset name of " + bitset);
    return found;
}

}
