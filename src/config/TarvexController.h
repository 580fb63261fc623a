#pragma once

#include "base/Event.h"
#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "config/IConfigController.h"
#include "config/RegisterMap.h"
#include "platform/IFileSystem.h"
#include "platform/IUserPrompts.h"
#include "platform/xml/XmlDocument.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class IStatusLine;

/// The one controller: joins init file, register model and link. It speaks to hardware only inside the transfer
/// operations and ConnectDevice, always through the device that the caller hands in.
class TarvexController : public IConfigController {
public:
    /// The main window is the status line and the first progress target; both must outlive the controller's use.
    TarvexController(ProgramState& state, IFileSystem& files, IErrorLog& errorLog, IUserPrompts& prompts,
                     IStatusLine& statusLine, IProgress& progress);
    ~TarvexController() override;

    Event<TarvexController, const std::vector<std::string>&> DeviceNamesChanged;
    /// Vendor id, product id, device name.
    Event<TarvexController, std::int32_t, std::int32_t, const std::string&> CurrentProductChanged;
    /// Device name, data-file path.
    Event<TarvexController, const std::string&, const std::string&> DataFileOpened;

    /// Name of the functional component that holds the device; empty for an unknown one. Raises 0x80040006 when no
    /// init file is loaded, as does the next.
    std::string GetComponentName(const std::string& deviceName);
    /// Device names of all options of all components.
    std::vector<std::string> GetComponentProductNames();

private:
    void IConfigController_Init(std::shared_ptr<TarvexData> initFile) override;
    std::string IConfigController_GetInitFileVersion() override;
    std::vector<std::string> IConfigController_GetCommLinkNames(const std::string& product) override;
    std::vector<std::string> IConfigController_GetDeviceNames(const std::string& option,
                                                              const std::string& protocol) override;
    std::int32_t IConfigController_pid() override { return device_.productId; }
    void IConfigController_pid(std::int32_t id) override { device_.productId = id; }
    std::int32_t IConfigController_BoardID() override { return device_.boardId; }
    std::string IConfigController_deviceName() override { return device_.deviceName; }
    std::int32_t IConfigController_vid() override { return vendorId_; }
    void IConfigController_SetCommLink(const std::string&) override {}
    void IConfigController_SetProgressBar(IProgress* progress) override;
    bool IConfigController_InitDevice(const std::string& name) override;
    bool IConfigController_InitDeviceFromFile(const std::string& path) override;
    bool IConfigController_ConnectDevice(const std::string& path, IDevice& device) override;
    std::int16_t IConfigController_GetI2CRegisterCount() override;
    std::shared_ptr<RegisterObject> IConfigController_GetI2CRegister(std::int16_t position) override;
    std::int16_t IConfigController_GetI2CRegisterIndex(const std::string& name) override;
    std::shared_ptr<RegisterObject> IConfigController_GetI2CRegisterByName(const std::string& name) override;
    void IConfigController_SetI2CRegisterValue(const std::string&, std::int32_t) override {}
    bool IConfigController_ReadI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi) override;
    void IConfigController_WriteI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi) override;
    std::int16_t IConfigController_GetGroupCount() override { return 0; }
    std::shared_ptr<TarvexGroup> IConfigController_GetGroup(std::int16_t) override { return nullptr; }
    void IConfigController_WriteGroup(const std::shared_ptr<TarvexGroup>&) override {}
    void IConfigController_ReadGroup(const std::shared_ptr<TarvexGroup>&) override {}
    std::int16_t IConfigController_GetPropertyCount() override;
    std::shared_ptr<TarvexProperty> IConfigController_GetProperty(std::int16_t position) override;
    std::shared_ptr<TarvexProperty> IConfigController_GetPropertyByName(const std::string& name) override;
    std::shared_ptr<Bitset> IConfigController_GetPropertyBitsetByName(const std::string& property,
                                                                      const std::string& bitset) override;
    void IConfigController_SetProperty(const std::shared_ptr<TarvexProperty>&) override {}
    std::int32_t IConfigController_GetPropertyValue(const std::string&) override { return 0; }
    void IConfigController_ReadProperty(const std::shared_ptr<TarvexProperty>&) override {}
    bool IConfigController_ReadPropertyByName(IDevice& device, const std::string& name, std::int16_t aspi) override;
    void IConfigController_WriteProperty(const std::shared_ptr<TarvexProperty>&) override {}
    void IConfigController_WritePropertyByName(IDevice& device, const std::string& name, std::int16_t aspi) override;

    /// The tree of the init file, or one without root while no init file is loaded.
    std::shared_ptr<const XmlDocument> InitTree() const;
    std::shared_ptr<const XmlDocument> UsableTree(const char* source) const;
    /// Builds the named device and puts it in place; false for an unknown name.
    bool LoadDevice(const std::string& name);
    DeviceMap ReadDataFile(const std::string& path) const;
    void CheckDataFile(XmlElement root, const std::string& path) const;
    std::shared_ptr<RegisterObject> RegisterNamed(const std::string& name, const char* source) const;
    /// Makes the device that answered on a link the current one.
    void InitConnected(const std::string& name, IDevice& device);
    void RaiseProductChanged();
    bool ReadOneRegister(RegisterObject& target, IDevice& device, std::int16_t aspi);
    bool ReadAllRegisters(IDevice& device, std::int16_t aspi);
    void WriteOneRegister(RegisterObject& target, IDevice& device, std::int16_t aspi);
    /// The property, or none to find it by its name once the status line shows it.
    void ReadOneProperty(const std::string& name, std::shared_ptr<TarvexProperty> property, IDevice& device);
    void WriteOneProperty(const std::string& name, std::shared_ptr<TarvexProperty> property, IDevice& device);

    ProgramState& state_;
    IFileSystem& files_;
    IErrorLog& errorLog_;
    IUserPrompts& prompts_;
    IStatusLine& statusLine_;
    IProgress* progress_;
    std::shared_ptr<TarvexData> initFile_;
    std::string initFilePath_;
    std::int32_t vendorId_ = 0;
    std::vector<std::string> deviceNames_;
    std::vector<std::string> componentNames_;
    DeviceMap device_;
};

}
