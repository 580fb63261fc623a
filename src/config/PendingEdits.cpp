#include "config/PendingEdits.h"

#include "config/IConfigController.h"
#include "model/RegisterObject.h"

namespace tarvex {

PendingEdits::PendingEdits(IConfigController& controller, const RegisterObject* except)
{
    for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i)
        if (const auto each = controller.GetI2CRegister(i); each->IsDirty() && each.get() != except)
            edits_.emplace_back(each, each->value());
}

PendingEdits::~PendingEdits()
{
    for (const auto& [target, value] : edits_) {
        target->value(value);
        target->IsDirty(true);
    }
}

}
