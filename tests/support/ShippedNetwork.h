#pragma once

#include "comm/SerialZorbus.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/DocumentFakes.h"

namespace tarvex {

/// Gives a document the init file and the network of enclosures that the program comes with, and the link to it. What
/// boards save is kept in the file "flash", and "journal" has the library's calls.
inline void UseShippedNetwork(DocumentFakes& fakes, IWait& wait, ZoneRest& rest)
{
    for (const std::string file : {"/Tarvex.xml", "/ZorbusNetwork.xml"})
        fakes.files_.files["/prog" + file] = PosixFileSystem().ReadWholeFile(TARVEX_SHARE + file, 1'000'000);
    fakes.services_.links[kSerialDeviceType] = [&] {
        const auto library = std::make_shared<SimulatedNorvaneSystem>(
            SimulatedNetworkFiles{"/prog/ZorbusNetwork.xml", true, "flash", "journal"},
            SimulatedNorvaneSystem::Services{&fakes.files_, &wait, &fakes.errors_});
        return std::make_shared<SerialZorbus>(SerialZorbusServices{[=] { return library; }, fakes.state_,
                                                                   fakes.packetLog_, fakes.errors_, fakes.prompts_,
                                                                   wait, rest},
                                              fakes.preferences_.serial);
    };
}

}
