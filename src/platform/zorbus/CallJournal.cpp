#include "platform/zorbus/CallJournal.h"

#include "base/Numbers.h"

#include <algorithm>

namespace tarvex {

bool CallJournal::Open(const std::string& path)
{
    if (std::find(paths_.begin(), paths_.end(), path) != paths_.end())
        return true;
    auto stream = files_ ? files_->OpenText(path, OpenMode::Append) : nullptr;
    if (!stream)
        return false;
    streams_.push_back(std::move(stream));
    paths_.push_back(path);
    return true;
}

void CallJournal::Write(const std::string& call, NorvaneStatus status, const std::string& results)
{
    if (streams_.empty())
        return;
    std::string line = call + " = " + (status < 0 ? HexText(status) : "ok");
    if (!results.empty())
        line += ": " + results;
    for (const auto& stream : streams_)
        stream->WriteLine(line);
}

std::string BoolText(NorvaneBool value) { return value == kNorvaneFalse ? "False" : "True"; }

}
