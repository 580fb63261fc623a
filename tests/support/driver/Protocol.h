#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::driver {

// A command and its answer are one line each, on the standard input and output of the driven program: fields with a
// character between them that no text contains. The first field of an answer is "ok" or "error".

inline constexpr char kSeparator = '\x1F';

/// The file descriptor for answers.
inline constexpr int kDescriptor = 1;

inline std::string ToLine(const std::vector<std::string>& fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : std::string(1, kSeparator)) + field;
    return line + '\n';
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

}
