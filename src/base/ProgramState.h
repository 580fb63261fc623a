#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// The program-wide values of one run. Main owns it and hands it down by reference; the start-up steps fill it.
struct ProgramState {
    std::string programFolder;       ///< folder of the real executable, without a separator at its end
    std::string programFileName;     ///< file name of the executable
    std::string rootFolder;          ///< folder that stands for "c:\", without a separator at its end
    std::int64_t instanceHandle = 0; ///< process id

    std::string g_minInitVersion = "2.4.0"; ///< minimum init-file version, changed by the product in use
    std::string g_dependsHelp;              ///< advice appended to failures of the dependency check
    std::string g_initFileInfo;             ///< init-file version and path for the version dialog
    std::string libraryVersionText;         ///< serial network library, for the version dialog
    std::string firmwareVersionText;        ///< board firmware, for the version dialog
};

}
