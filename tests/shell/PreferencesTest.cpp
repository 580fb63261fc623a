#include "shell/Preferences.h"

#include "base/Error.h"
#include "support/FakeSettingsStore.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

struct Stored {
    const char* text; // of every key
    bool flag;        // AutoConnect and AutoLoadFileOpen
    bool keepLinkOpen;
    std::int32_t baudRate;
    std::int16_t comPort;
};

constexpr Stored kStored[] = {
    {"", false, true, 9600, 1},      {"garbage", false, true, 9600, 1}, {"99999999999", false, true, 9600, 1},
    {"70000", true, true, 70000, 1}, {" 12 ", true, true, 12, 12},      {"0", false, false, 0, 0},
    {"TRUE", true, true, 9600, 1},   {"false", false, false, 9600, 1},  {"1.5", false, true, 9600, 1},
};

constexpr const char* kKeys[] = {"AutoConnect", "AutoLoadFileOpen", "LastZorbusID", "LastChannel",
                                 "Baud",        "COM_Port",         "KeepLinkOpen"};

}

TEST(Preferences, FirstRunAndBrokenStoreStartWithTheDefaults)
{
    FakeSettingsStore store;
    for (const bool fails : {false, true}) {
        store.failsToRead = fails;
        Preferences preferences;
        LoadPreferences(store, preferences);
        EXPECT_FALSE(preferences.autoConnect || preferences.autoLoadFileOpen);
        EXPECT_EQ(preferences.lastZorbusId + " " + preferences.lastChannel, "0x0000 0");
        EXPECT_EQ(preferences.serial.comPort, 1);
        EXPECT_EQ(preferences.serial.baudRate, 9600);
        EXPECT_TRUE(preferences.serial.keepLinkOpen);
        EXPECT_EQ(preferences.serial.kind, kSerialPortKind);
    }
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
        EXPECT_EQ(preferences.autoConnect, stored.flag);
        EXPECT_EQ(preferences.autoLoadFileOpen, stored.flag);
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

TEST(Preferences, AnswerForTheTwoFlagsByName)
{
    Preferences preferences;
    preferences.autoLoadFileOpen = true;
    EXPECT_FALSE(GetAppPreference(preferences, "AutoConnect"));
    EXPECT_TRUE(GetAppPreference(preferences, "AutoLoadFileOpen"));
    try {
        GetAppPreference(preferences, "Baud");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 402);
        EXPECT_EQ(error.Source(), "AdvancedForm::GetAppPreference");
        EXPECT_EQ(error.Description(), "Preference Baud not defined");
    }
}

}
