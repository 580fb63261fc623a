#pragma once

#include <pugixml.hpp>
#include <string_view>

namespace tarvex {

// Comments and instructions are kept, so that a file says the same after it was loaded and saved. Text of blanks only
// is layout between elements, but the value of an element that holds nothing else. The text of an element is kept in
// its own node, which saves nearly half of the nodes of an init file.
inline constexpr unsigned kParsing = pugi::parse_default | pugi::parse_comments | pugi::parse_pi |
                                     pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata;

/// The bytes without the byte order mark that may stand before them.
inline std::string_view WithoutMark(std::string_view bytes)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    return bytes;
}

}
