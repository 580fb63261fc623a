#include "config/DataFileSaving.h"

namespace tarvex {

bool SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path, const std::function<bool(TarvexData&)>& addParts)
{
    TarvexData file(services.state, services.files);
    file.InitToWrite(initFile, path, services.clock);
    file.AddProduct(initFile, controller.deviceName());
    if (addParts && !addParts(file))
        return false;
    file.WriteSimpleData(controller);
    file.Commit(path);
    return true;
}

}
