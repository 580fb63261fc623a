#include "config/DataFileSaving.h"

namespace tarvex {

void SaveDataFile(const DataFileServices& services, const TarvexData& initFile, IConfigController& controller,
                  const std::string& path)
{
    const auto tree = initFile.Tree(); // one for all that is looked up below
    TarvexData file(services.state, services.files);
    file.InitToWrite(initFile, path, services.clock);
    file.AddProduct(initFile, controller.deviceName());
    file.WriteSimpleData(controller);
    file.Commit(path);
}

}
