#include "ui/common/SettingsStore.h"

#include "base/Text.h"
#include "ui/common/WindowTools.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace tarvex {

namespace {

constexpr qint64 kLargestFile = 1024 * 1024;

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Backslash and line ends are escaped; a text that trimming or unquoting would change stands in quotes.
std::string Encoded(std::string_view value)
{
    std::string text;
    for (const char letter : value) {
        if (letter == '\n' || letter == '\r')
            text += letter == '\n' ? "\\n" : "\\r";
        else
            text.append(letter == '\\' ? 2 : 1, letter);
    }
    const bool plain = Trimmed(text) == text && !text.starts_with('"');
    return plain ? text : '"' + text + '"';
}

std::string Decoded(std::string_view text)
{
    if (text.size() >= 2 && text.starts_with('"') && text.ends_with('"'))
        text = text.substr(1, text.size() - 2);
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            value += text[i];
            continue;
        }
        const char letter = text[++i];
        value += letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter;
    }
    return value;
}

bool IsSectionLine(std::string_view line) { return line.starts_with('[') && line.ends_with(']'); }

}

SettingsStore::SettingsStore(std::string path) : path_(std::move(path)) { Load(); }

std::string SettingsStore::DefaultPath(const std::string& application)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return FromQt(folder) + '/' + application + '/' + application + ".ini";
}

void SettingsStore::Load()
{
    const QFileInfo info(ToQt(path_));
    if (!info.exists() && !info.isSymLink())
        return;
    QFile file(ToQt(path_));
    usable_ = info.isFile() && info.size() <= kLargestFile && file.open(QIODevice::ReadOnly);
    if (!usable_)
        return;
    const QByteArray content = file.read(kLargestFile);
    usable_ = file.error() == QFileDevice::NoError;
    if (!usable_ || content.contains('\0')) // no text: nothing in it is worth keeping
        return;
    lines_ = Split(content.toStdString(), "\n");
    if (lines_.back().empty())
        lines_.pop_back();
}

std::optional<std::string> SettingsStore::Read(std::string_view section, std::string_view key)
{
    const Place place = Find(section, key);
    if (!place.keyFound)
        return std::nullopt;
    const std::string_view line = lines_[place.line];
    return Decoded(Trimmed(line.substr(line.find('=') + 1)));
}

void SettingsStore::Write(std::string_view section, std::string_view key, std::string_view value)
{
    if (Read(section, key) == value)
        return;
    written_[{std::string(section), std::string(key)}] = value;
    Put(std::string(section), std::string(key), std::string(value));
}

void SettingsStore::Put(const std::string& section, const std::string& key, const std::string& value)
{
    Place place = Find(section, key);
    const std::string line = key + '=' + Encoded(value);
    if (place.keyFound) {
        lines_[place.line] = line;
        return;
    }
    if (!place.sectionFound) {
        lines_.push_back('[' + section + ']');
        place.line = lines_.size();
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.line), line);
}

void SettingsStore::Refresh()
{
    if (usable_)
        Load();
    for (const auto& [place, value] : written_)
        Put(place.first, place.second, value);
}

bool SettingsStore::Flush()
{
    if (!usable_ || written_.empty())
        return usable_;
    Refresh();
    if (!usable_)
        return false;
    QDir().mkpath(QFileInfo(ToQt(path_)).path());
    QByteArray content;
    for (const std::string& line : lines_)
        content.append(QByteArray::fromStdString(line)).append('\n');
    QSaveFile file(ToQt(path_));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    // flush is asked here: commit would not notice that a full disk did not take the buffer, and lose the old file
    const bool saved = written && file.flush() && file.commit();
    if (saved)
        written_.clear();
    return saved;
}

SettingsStore::Place SettingsStore::Find(std::string_view section, std::string_view key) const
{
    Place place{lines_.size()};
    bool inside = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = Trimmed(lines_[i]);
        if (IsSectionLine(line))
            inside = line.substr(1, line.size() - 2) == section;
        else if (inside && Trimmed(line.substr(0, line.find('='))) == key && line.find('=') != line.npos)
            return {i, true, true};
        if (inside && !line.empty()) { // a new key comes after the last one of its section
            place.line = i + 1;
            place.sectionFound = true;
        }
    }
    return place;
}

}
