#pragma once

#include "base/Event.h"
#include "comm/api/IDevice.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class Bitset;
class IProgress;
class RegisterObject;
class TarvexData;
class TarvexGroup;
class TarvexProperty;

inline constexpr const char* kAllOptions = "Option_Name_All";
inline constexpr const char* kRegisterProtocol = "NVSignalProcessing";

/// What the views know of the controller: the devices that the init file offers, the registers and settings of the
/// current one, and their transfer through a link. `Document` owns it. Positions count from 0 in reading order.
class IConfigController {
public:
    virtual ~IConfigController() = default;

    /// Takes the root, path and vendor id of an initialised model; raises 0x80040006 for none.
    void Init(std::shared_ptr<TarvexData> initFile) { IConfigController_Init(std::move(initFile)); }
    std::string GetInitFileVersion() { return IConfigController_GetInitFileVersion(); }
    /// Names of the product's links for register work; raises 0x80040009 when there are none.
    std::vector<std::string> GetCommLinkNames(const std::string& product)
    {
        return IConfigController_GetCommLinkNames(product);
    }
    /// Names of all devices of an option; raises `DeviceNamesChanged` when they are read the first time. Raises
    /// 0x80040006 when the init file has none. The protocol plays no part.
    std::vector<std::string> GetDeviceNames(const std::string& option, const std::string& protocol)
    {
        return IConfigController_GetDeviceNames(option, protocol);
    }
    /// Product id of the current device; on the serial network the id of the node in use.
    std::int32_t pid() { return IConfigController_pid(); }
    void pid(std::int32_t id) { IConfigController_pid(id); }
    std::int32_t BoardID() { return IConfigController_BoardID(); }
    std::string deviceName() { return IConfigController_deviceName(); }
    std::int32_t vid() { return IConfigController_vid(); }
    /// Accepted and ignored: links are switched by the document.
    void SetCommLink(const std::string& link) { IConfigController_SetCommLink(link); }
    /// Directs progress to another place; none leaves it where it is.
    void SetProgressBar(IProgress* progress) { IConfigController_SetProgressBar(progress); }

    /// Builds the register map of the named device from the init file and raises `CurrentProductChanged`. False for an
    /// unknown name; errors of the file reach the caller. Either way the running map then stays as it was.
    bool InitDevice(const std::string& name) { return IConfigController_InitDevice(name); }
    /// Loads a data file as the register map, every register marked changed, and raises `DataFileOpened`. Errors are
    /// logged and answered with false; the running map then stays as it was.
    bool InitDeviceFromFile(const std::string& path) { return IConfigController_InitDeviceFromFile(path); }
    /// Connects the link to a path and makes the device that answers the current one. False when that fails; raises
    /// 0x8004012C when the device that answers cannot be initialised.
    bool ConnectDevice(const std::string& path, IDevice& device)
    {
        return IConfigController_ConnectDevice(path, device);
    }

    std::int16_t GetI2CRegisterCount() { return IConfigController_GetI2CRegisterCount(); }
    /// Raises 9 outside 0 to count - 1.
    std::shared_ptr<RegisterObject> GetI2CRegister(std::int16_t position)
    {
        return IConfigController_GetI2CRegister(position);
    }
    /// -1 when there is none of exactly this name.
    std::int16_t GetI2CRegisterIndex(const std::string& name) { return IConfigController_GetI2CRegisterIndex(name); }
    /// Raises 5 for an unknown name.
    std::shared_ptr<RegisterObject> GetI2CRegisterByName(const std::string& name)
    {
        return IConfigController_GetI2CRegisterByName(name);
    }
    /// No effect.
    void SetI2CRegisterValue(const std::string& name, std::int32_t value)
    {
        IConfigController_SetI2CRegisterValue(name, value);
    }
    /// Reads the named register, or with an empty name all of them, with progress and status texts. The result is that
    /// of the (last) register's read: true when its value is not 0. Errors of the link reach the caller.
    bool ReadI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi = kNoAspi)
    {
        return IConfigController_ReadI2CRegister(device, name, aspi);
    }
    void WriteI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi = kNoAspi)
    {
        IConfigController_WriteI2CRegister(device, name, aspi);
    }

    /// No effect; 0.
    std::int16_t GetGroupCount() { return IConfigController_GetGroupCount(); }
    /// No effect; none.
    std::shared_ptr<TarvexGroup> GetGroup(std::int16_t position) { return IConfigController_GetGroup(position); }
    /// No effect.
    void WriteGroup(const std::shared_ptr<TarvexGroup>& group) { IConfigController_WriteGroup(group); }
    void ReadGroup(const std::shared_ptr<TarvexGroup>& group) { IConfigController_ReadGroup(group); }

    std::int16_t GetPropertyCount() { return IConfigController_GetPropertyCount(); }
    /// Raises 9 outside 0 to count - 1.
    std::shared_ptr<TarvexProperty> GetProperty(std::int16_t position)
    {
        return IConfigController_GetProperty(position);
    }
    /// Raises 502 for an unknown name.
    std::shared_ptr<TarvexProperty> GetPropertyByName(const std::string& name)
    {
        return IConfigController_GetPropertyByName(name);
    }
    /// Raises 502 for an unknown property or bit field.
    std::shared_ptr<Bitset> GetPropertyBitsetByName(const std::string& property, const std::string& bitset)
    {
        return IConfigController_GetPropertyBitsetByName(property, bitset);
    }
    /// No effect.
    void SetProperty(const std::shared_ptr<TarvexProperty>& property) { IConfigController_SetProperty(property); }
    /// No effect; 0.
    std::int32_t GetPropertyValue(const std::string& name) { return IConfigController_GetPropertyValue(name); }
    /// No effect.
    void ReadProperty(const std::shared_ptr<TarvexProperty>& property) { IConfigController_ReadProperty(property); }
    /// Reads the registers behind the named setting, or with an empty name behind all of them.
    bool ReadPropertyByName(IDevice& device, const std::string& name, std::int16_t aspi = kNoAspi)
    {
        return IConfigController_ReadPropertyByName(device, name, aspi);
    }
    /// No effect.
    void WriteProperty(const std::shared_ptr<TarvexProperty>& property) { IConfigController_WriteProperty(property); }
    void WritePropertyByName(IDevice& device, const std::string& name, std::int16_t aspi = kNoAspi)
    {
        IConfigController_WritePropertyByName(device, name, aspi);
    }

private:
    virtual void IConfigController_Init(std::shared_ptr<TarvexData> initFile) = 0;
    virtual std::string IConfigController_GetInitFileVersion() = 0;
    virtual std::vector<std::string> IConfigController_GetCommLinkNames(const std::string& product) = 0;
    virtual std::vector<std::string> IConfigController_GetDeviceNames(const std::string& option,
                                                                      const std::string& protocol) = 0;
    virtual std::int32_t IConfigController_pid() = 0;
    virtual void IConfigController_pid(std::int32_t id) = 0;
    virtual std::int32_t IConfigController_BoardID() = 0;
    virtual std::string IConfigController_deviceName() = 0;
    virtual std::int32_t IConfigController_vid() = 0;
    virtual void IConfigController_SetCommLink(const std::string& link) = 0;
    virtual void IConfigController_SetProgressBar(IProgress* progress) = 0;
    virtual bool IConfigController_InitDevice(const std::string& name) = 0;
    virtual bool IConfigController_InitDeviceFromFile(const std::string& path) = 0;
    virtual bool IConfigController_ConnectDevice(const std::string& path, IDevice& device) = 0;
    virtual std::int16_t IConfigController_GetI2CRegisterCount() = 0;
    virtual std::shared_ptr<RegisterObject> IConfigController_GetI2CRegister(std::int16_t position) = 0;
    virtual std::int16_t IConfigController_GetI2CRegisterIndex(const std::string& name) = 0;
    virtual std::shared_ptr<RegisterObject> IConfigController_GetI2CRegisterByName(const std::string& name) = 0;
    virtual void IConfigController_SetI2CRegisterValue(const std::string& name, std::int32_t value) = 0;
    virtual bool IConfigController_ReadI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi) = 0;
    virtual void IConfigController_WriteI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi) = 0;
    virtual std::int16_t IConfigController_GetGroupCount() = 0;
    virtual std::shared_ptr<TarvexGroup> IConfigController_GetGroup(std::int16_t position) = 0;
    virtual void IConfigController_WriteGroup(const std::shared_ptr<TarvexGroup>& group) = 0;
    virtual void IConfigController_ReadGroup(const std::shared_ptr<TarvexGroup>& group) = 0;
    virtual std::int16_t IConfigController_GetPropertyCount() = 0;
    virtual std::shared_ptr<TarvexProperty> IConfigController_GetProperty(std::int16_t position) = 0;
    virtual std::shared_ptr<TarvexProperty> IConfigController_GetPropertyByName(const std::string& name) = 0;
    virtual std::shared_ptr<Bitset> IConfigController_GetPropertyBitsetByName(const std::string& property,
                                                                              const std::string& bitset) = 0;
    virtual void IConfigController_SetProperty(const std::shared_ptr<TarvexProperty>& property) = 0;
    virtual std::int32_t IConfigController_GetPropertyValue(const std::string& name) = 0;
    virtual void IConfigController_ReadProperty(const std::shared_ptr<TarvexProperty>& property) = 0;
    virtual bool IConfigController_ReadPropertyByName(IDevice& device, const std::string& name, std::int16_t aspi) = 0;
    virtual void IConfigController_WriteProperty(const std::shared_ptr<TarvexProperty>& property) = 0;
    virtual void IConfigController_WritePropertyByName(IDevice& device, const std::string& name, std::int16_t aspi) = 0;
};

}
