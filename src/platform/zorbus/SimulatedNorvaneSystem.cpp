#include "platform/zorbus/SimulatedNorvaneSystem.h"

#include "base/Version.h"

namespace tarvex {

std::string SimulatedNorvaneSystem::Version() { return "1.1.11"; }

bool SimulatedNorvaneSystem::MinimumVersion(const std::string& major, const std::string& minor,
                                            const std::string& build)
{
    return IsVersionAtLeast(Version(), major + "." + minor + "." + build);
}

}
