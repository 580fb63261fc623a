#pragma once

#include <functional>

namespace tarvex {

class IWizardHost;

/// How one step of a run over many registers ended.
enum class TransferStep { Done, Failed, LinkLost };

/// Carries out a step, which answers false when it found the link down; its errors are logged. After a failure the
/// board is asked whether it still answers, so that a lost link ends the run with one message.
TransferStep TryStep(IWizardHost& host, const std::function<bool()>& step);

}
