#include "shell/Preferences.h"

#include "support/FakeSettingsStore.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

struct Stored {
    const char* text; // of every key
    bool autoConnect;
    bool keepLinkOpen;
    std::int32_t baudRate;
    std::int16_t comPort;
};

constexpr Stored kStored[] = {
    {"", false, true, 9600, 1},      {"99999999999", false, true, 9600, 1},
    {"70000", true, true, 70000, 1}, {" 12 ", true, true, 12, 12},
    {"0", false, false, 0, 0},       {"TRUE", true, true, 9600, 1},
    {"1.5", false, true, 9600, 1},
};

constexpr const char* kKeys[] = {"AutoConnect", "AutoLoadFileOpen", "LastZorbusID", "LastChannel",
                                 "Baud",        "COM_Port",         "KeepLinkOpen"};

}

TEST(Preferences, UnreadableValuesGiveTheirDefault)
{
    for (const Stored& stored : kStored) {
        SCOPED_TRACE(stored.text);
        FakeSettingsStore store;
        for (const char* key : kKeys)
            store.values[{"UserPreferences", key}] = stored.text;
        Preferences preferences;
        LoadPreferences(store, preferences);
        EXPECT_EQ(preferences.autoConnect, stored.autoConnect);
        EXPECT_EQ(preferences.serial.keepLinkOpen, stored.keepLinkOpen);
        EXPECT_EQ(preferences.serial.baudRate, stored.baudRate);
        EXPECT_EQ(preferences.serial.comPort, stored.comPort);
        EXPECT_EQ(preferences.lastZorbusId, stored.text);
    }
}

TEST(Preferences, AreSavedAsTextOnceAndOnlyWhenTheyWereLoaded)
{
    FakeSettingsStore store;
    Preferences preferences;
    SavePreferences(store, preferences);
    EXPECT_TRUE(store.values.empty());

    LoadPreferences(store, preferences);
    preferences.autoConnect = true;
    preferences.lastZorbusId = "0x333";
    preferences.serial.comPort = 7;
    SavePreferences(store, preferences);
    preferences.autoConnect = false;
    SavePreferences(store, preferences);
    EXPECT_EQ(store.flushes, 1);
    const std::map<std::string, std::string> expected = {{"AutoConnect", "True"},   {"AutoLoadFileOpen", "False"},
                                                         {"LastZorbusID", "0x333"}, {"LastChannel", "0"},
                                                         {"Baud", "9600"},          {"COM_Port", "7"},
                                                         {"KeepLinkOpen", "True"}};
    std::map<std::string, std::string> written;
    for (const auto& [key, value] : store.values)
        written[key.first == "UserPreferences" ? key.second : "?"] = value;
    EXPECT_EQ(written, expected);
}

}
