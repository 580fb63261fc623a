#pragma once

#include <string>

namespace tarvex::driver {

/// One input of a user who presses anything anywhere, the same for the same number and the same windows. In a file
/// dialog it only names one of a few files, so that nothing outside the run's own folder is written.
void RandomInput(const std::string& number);

}
