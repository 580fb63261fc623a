#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

inline constexpr std::size_t kXmlMaxBytes = 64U * 1024 * 1024;
inline constexpr int kXmlMaxDepth = 64;
inline constexpr int kXmlMaxAttributes = 64;
/// Tags, attributes, comments and the like: each costs memory that is many times its bytes.
inline constexpr int kXmlMaxPieces = 4'000'000;

/// Why and where a document is refused.
struct XmlRefusal {
    std::size_t offset;
    std::string text;
};

/// Looks at a document before the XML library does, once through and without building anything: its size, its bytes
/// (UTF-8 without a byte order mark), the nesting and number of its elements, their attributes and references. A
/// document type declaration is refused. None when the document may be handed to the library, which finds what else is
/// wrong with it.
std::optional<XmlRefusal> CheckXml(std::string_view text);

/// The position of the first byte from `from` on that a document cannot hold: a control character, or where a
/// malformed UTF-8 sequence begins. npos when there is none.
std::size_t FindBadByte(std::string_view text, std::size_t from = 0);

/// "line 3, column 14" of a byte; both count from 1, columns in characters.
std::string XmlPlace(std::string_view text, std::size_t offset);

}
