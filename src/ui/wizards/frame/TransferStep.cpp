#include "ui/wizards/frame/TransferStep.h"

#include "base/Error.h"
#include "ui/wizards/frame/IWizardHost.h"

namespace tarvex {

TransferStep TryStep(IWizardHost& host, const std::function<bool()>& step)
{
    try {
        return step() ? TransferStep::Done : TransferStep::LinkLost;
    } catch (const Error&) {
        host.Services().errorLog.LogCurrentError();
    }
    return host.CheckConnection() ? TransferStep::Failed : TransferStep::LinkLost;
}

}
