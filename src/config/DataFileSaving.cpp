#include "config/DataFileSaving.h"

namespace tarvex {

void SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path, const std::function<void(TarvexData&)>& addParts)
{
    TarvexData file(services.state, services.files);
    file.InitToWrite(initFile, path, services.clock);
    file.AddProduct(initFile, controller.deviceName());
    if (addParts)
        addParts(file);
    file.WriteSimpleData(controller);
    file.Commit(path);
}

}
