#pragma once

#include "platform/ISettingsStore.h"
#include "platform/zorbus/CommSettings.h"

#include <map>
#include <string>

namespace tarvex {

/// The user's choices that outlive a run, as they are in memory. Main owns them; the main window changes them.
struct Preferences {
    bool autoConnect = false;
    bool autoLoadFileOpen = false;
    std::string lastZorbusId = "0x0000";
    std::string lastChannel = "0";
    CommSettings serial;
    bool loaded = false;                         ///< set by LoadPreferences; what was never loaded is never saved
    std::map<std::string, std::string> asLoaded; ///< the texts of the keys then: other ones were chosen in this run
};

/// Reads the seven keys; a missing or unreadable value gives its default.
void LoadPreferences(ISettingsStore& store, Preferences& preferences);

/// Writes those of the seven keys that have changed since they were loaded, or are missing: the others may have been
/// changed by another program meanwhile. Marks them not loaded, so that a run saves them once. False when the store did
/// not take them.
bool SavePreferences(ISettingsStore& store, Preferences& preferences);

/// "AutoConnect" or "AutoLoadFileOpen"; raises 402 for any other name.
bool GetAppPreference(const Preferences& preferences, const std::string& name);

}
