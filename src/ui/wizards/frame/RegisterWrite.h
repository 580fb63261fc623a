#pragma once

#include <cstdint>

namespace tarvex {

class IWizardHost;
class RegisterObject;

/// Gives a register a value and writes it to the board. A value that the board did not take is taken back again, since
/// files are saved and further steps are worked out from what the registers hold. Belongs inside the host's Write.
void WriteRegister(IWizardHost& host, RegisterObject& target, std::int32_t value, std::int16_t aspi);

}
