#pragma once

#include "base/Event.h"
#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "config/IConfigController.h"
#include "platform/IFileSystem.h"
#include "platform/IUserPrompts.h"
#include "platform/xml/XmlDocument.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarvex {

class IStatusLine;

/// What one device consists of: built aside, and put in place of the running map only when it is whole.
struct RegisterMap {
    std::vector<std::shared_ptr<RegisterObject>> registers;
    std::unordered_map<std::string, std::size_t> registerPositions;
    std::vector<std::shared_ptr<TarvexGroup>> groups;
    std::vector<std::shared_ptr<TarvexProperty>> properties;
    std::unordered_map<std::string, std::size_t> propertyPositions;

    RegisterMap() = default;
    RegisterMap(RegisterMap&&) = default;
    RegisterMap& operator=(RegisterMap&&) = default;
    ~RegisterMap();
};

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

    // The implementer adds: private overrides of IConfigController and the state.
};

}
