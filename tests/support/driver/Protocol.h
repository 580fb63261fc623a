#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace tarvex::driver {

// A command and its answer are one line each, sent as one packet: fields with a character between them that no text
// contains. The first field of an answer is "ok" or "error".

inline constexpr char kSeparator = '\x1F';

/// The file descriptor that the driven program inherits, one end of a socket pair.
inline constexpr int kDescriptor = 3;

inline std::string ToLine(const std::vector<std::string>& fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : std::string(1, kSeparator)) + field;
    return line;
}

inline std::vector<std::string> ToFields(std::string_view line)
{
    std::vector<std::string> fields;
    for (auto end = line.find(kSeparator); end != std::string_view::npos; end = line.find(kSeparator)) {
        fields.emplace_back(line.substr(0, end));
        line.remove_prefix(end + 1);
    }
    fields.emplace_back(line);
    return fields;
}

/// The next packet from a socket; empty when the other side is gone.
inline std::string ReceiveLine(int socket)
{
    std::string line(65536, '\0');
    line.resize(static_cast<std::size_t>(std::max<ssize_t>(0, read(socket, line.data(), line.size()))));
    return line;
}

}
