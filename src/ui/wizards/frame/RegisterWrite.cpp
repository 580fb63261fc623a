#include "ui/wizards/frame/RegisterWrite.h"

#include "model/RegisterObject.h"
#include "ui/wizards/frame/IWizardHost.h"

namespace tarvex {

void WriteRegister(IWizardHost& host, RegisterObject& target, std::int32_t value, std::int16_t aspi)
{
    const std::int32_t before = target.value();
    const bool wasDirty = target.IsDirty();
    const int failures = host.Failures();
    const auto takeBack = [&] {
        target.value(before);
        target.IsDirty(wasDirty);
    };
    target.value(value);
    try {
        target.WriteValue(host.Device(), aspi);
    } catch (...) {
        takeBack();
        throw;
    }
    if (host.Failures() > failures)
        takeBack();
}

}
