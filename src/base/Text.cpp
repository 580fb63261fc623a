#include "base/Text.h"

#include <algorithm>

namespace tarvex {

namespace {

char LowerLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

char UpperLetter(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}

std::string ToLower(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), LowerLetter);
    return result;
}

std::string ToUpper(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), UpperLetter);
    return result;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) { return ToLower(left) == ToLower(right); }

bool ContainsIgnoringCase(std::string_view text, std::string_view part)
{
    return ToLower(text).find(ToLower(part)) != std::string::npos;
}

std::string_view TrimBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> pieces;
    for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string ReplaceAll(std::string_view text, char from, char to)
{
    std::string result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

std::string_view FileNameOf(std::string_view path)
{
    const auto last = path.rfind('/');
    return last == std::string_view::npos ? path : path.substr(last + 1);
}

}
