#include "ui/wizards/cendra/CendraStep.h"

#include "base/Error.h"
#include "ui/wizards/frame/IWizardHost.h"

namespace tarvex {

CendraStep TryStep(IWizardHost& host, const std::function<bool()>& step)
{
    try {
        return step() ? CendraStep::Done : CendraStep::LinkLost;
    } catch (const Error&) {
        host.Services().errorLog.LogCurrentError();
    }
    return host.CheckConnection() ? CendraStep::Failed : CendraStep::LinkLost;
}

}
