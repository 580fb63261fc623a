#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::driver {

// A command and its answer are one line each: fields separated by tabs, with tabs, line ends and percent signs written
// as %hh. The first field of an answer is "ok" or "error".

/// The file descriptor that the driven program inherits, one end of a socket pair.
inline constexpr int kDescriptor = 3;

inline std::string Escape(std::string_view text)
{
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string result;
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code >= 32 && letter != '%')
            result += letter;
        else
            (result += '%').append({kDigits[code / 16], kDigits[code % 16]});
    }
    return result;
}

inline std::string Unescape(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            result += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

inline std::string ToLine(const std::vector<std::string>& fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : "\t") + Escape(field);
    return line + '\n';
}

inline std::vector<std::string> ToFields(std::string_view line)
{
    std::vector<std::string> fields;
    for (auto end = line.find('\t'); end != std::string_view::npos; end = line.find('\t')) {
        fields.push_back(Unescape(line.substr(0, end)));
        line.remove_prefix(end + 1);
    }
    fields.push_back(Unescape(line));
    return fields;
}

}
