#include "platform/zorbus/ElementPlace.h"

#include <algorithm>
#include <cstddef>

namespace tarvex {

namespace {

/// Whether the target is `from` or below it; `count` grows by the elements that begin before it.
bool CountUpTo(const XmlElement& target, const XmlElement& from, std::size_t& count)
{
    if (from == target)
        return true;
    ++count;
    for (XmlElement child = from.FirstChild(); child; child = child.NextSibling())
        if (CountUpTo(target, child, count))
            return true;
    return false;
}

/// The end of what begins at this "<", or a place in it before the next one: attributes hold no "<".
std::size_t EndOfMarkup(std::string_view text, std::size_t start)
{
    const std::string_view rest = text.substr(start);
    const char* end = ">";
    if (rest.starts_with("<!--"))
        end = "-->";
    else if (rest.starts_with("<![CDATA["))
        end = "]]>";
    else if (rest.starts_with("<?"))
        end = "?>";
    return text.find(end, start);
}

/// Where the element with this number in the order of the document begins.
std::size_t StartOf(std::size_t number, std::string_view text)
{
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        const bool isElement = next != '!' && next != '?' && next != '/';
        if (isElement && number-- == 0)
            return at;
        at = EndOfMarkup(text, at);
        if (at == std::string_view::npos)
            break;
    }
    return std::string_view::npos;
}

}

std::string PlaceOf(const XmlElement& element, const XmlDocument& document, std::string_view text)
{
    std::size_t number = 0;
    const std::size_t start =
        CountUpTo(element, document.Root(), number) ? StartOf(number, text) : std::string_view::npos;
    if (start == std::string_view::npos)
        return {};
    const std::string_view before = text.substr(0, start);
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 on the first line
    return "line " + std::to_string(std::count(before.begin(), before.end(), '\n') + 1) + ", column " +
           std::to_string(start - lineStart + 1);
}

}
