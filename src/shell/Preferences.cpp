#include "shell/Preferences.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <limits>

namespace tarvex {

namespace {

constexpr const char* kSection = "UserPreferences";

std::optional<bool> ToBoolean(std::string_view text)
{
    text = TrimBlanks(text);
    if (EqualsIgnoringCase(text, "True"))
        return true;
    if (EqualsIgnoringCase(text, "False"))
        return false;
    if (const auto number = TryParseDecimal(text))
        return *number != 0;
    return std::nullopt;
}

std::string ToText(bool flag) { return flag ? "True" : "False"; }

bool ReadBoolean(ISettingsStore& store, std::string_view key, bool standard)
{
    return ToBoolean(store.Read(kSection, key).value_or("")).value_or(standard);
}

std::map<std::string, std::string> TextsOf(const Preferences& preferences)
{
    return {{"AutoConnect", ToText(preferences.autoConnect)},
            {"AutoLoadFileOpen", ToText(preferences.autoLoadFileOpen)},
            {"LastZorbusID", preferences.lastZorbusId},
            {"LastChannel", preferences.lastChannel},
            {"Baud", std::to_string(preferences.serial.baudRate)},
            {"COM_Port", std::to_string(preferences.serial.comPort)},
            {"KeepLinkOpen", ToText(preferences.serial.keepLinkOpen)}};
}

template <class Integer> Integer ReadNumber(ISettingsStore& store, std::string_view key, Integer standard)
{
    const auto number = TryParseDecimal(TrimBlanks(store.Read(kSection, key).value_or("")));
    const bool fits =
        number && *number >= std::numeric_limits<Integer>::min() && *number <= std::numeric_limits<Integer>::max();
    return fits ? static_cast<Integer>(*number) : standard;
}

}

void LoadPreferences(ISettingsStore& store, Preferences& preferences)
{
    const Preferences standard;
    preferences.autoConnect = ReadBoolean(store, "AutoConnect", standard.autoConnect);
    preferences.autoLoadFileOpen = ReadBoolean(store, "AutoLoadFileOpen", standard.autoLoadFileOpen);
    preferences.lastZorbusId = store.Read(kSection, "LastZorbusID").value_or(standard.lastZorbusId);
    preferences.lastChannel = store.Read(kSection, "LastChannel").value_or(standard.lastChannel);
    preferences.serial.baudRate = ReadNumber(store, "Baud", standard.serial.baudRate);
    preferences.serial.comPort = ReadNumber(store, "COM_Port", standard.serial.comPort);
    preferences.serial.keepLinkOpen = ReadBoolean(store, "KeepLinkOpen", standard.serial.keepLinkOpen);
    preferences.serial.kind = kSerialPortKind;
    preferences.loaded = true;
    preferences.asLoaded = TextsOf(preferences);
}

bool SavePreferences(ISettingsStore& store, Preferences& preferences)
{
    if (!preferences.loaded)
        return true;
    preferences.loaded = false;
    for (const auto& [key, text] : TextsOf(preferences))
        if (text != preferences.asLoaded.at(key) || !store.Read(kSection, key))
            store.Write(kSection, key, text);
    return store.Flush();
}

bool GetAppPreference(const Preferences& preferences, const std::string& name)
{
    if (name == "AutoConnect")
        return preferences.autoConnect;
    if (name == "AutoLoadFileOpen")
        return preferences.autoLoadFileOpen;
    Raise(402, "AdvancedForm::GetAppPreference", "Preference " + name + " not defined");
}

}
