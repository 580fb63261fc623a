#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

// Letter case is that of ASCII in every function: files and switches mean the same under every locale.

std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

/// The text without blanks (and only blanks) at both ends.
std::string_view TrimBlanks(std::string_view text);

/// The pieces between the separators, empty ones included; one piece when there is no separator.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

/// The text with every occurrence of `from` replaced.
std::string ReplaceAll(std::string_view text, char from, char to);

/// The part of a path after its last separator.
std::string_view FileNameOf(std::string_view path);

}
