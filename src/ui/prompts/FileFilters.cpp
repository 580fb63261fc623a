#include "ui/prompts/FileFilters.h"

#include "base/Text.h"
#include "ui/common/WindowTools.h"

namespace tarvex {

namespace {

/// Caption and patterns of one filter; the patterns that the caption repeats are replaced by the real ones.
QString NameFilter(std::string_view caption, std::string_view patterns)
{
    QStringList list;
    for (const std::string& pattern : Split(patterns, ";"))
        list << (TrimBlanks(pattern) == "*.*" ? QStringLiteral("*") : ToQt(TrimBlanks(pattern)));
    const auto bracket = caption.ends_with(')') ? caption.rfind('(') : caption.npos;
    return ToQt(TrimBlanks(caption.substr(0, bracket))) + QStringLiteral(" (") + list.join(u' ') + u')';
}

}

QStringList NameFilters(std::string_view filter)
{
    QStringList filters;
    const auto pieces = Split(filter, "|");
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2)
        filters << NameFilter(pieces[i], pieces[i + 1]);
    if (filters.isEmpty())
        filters << QStringLiteral("All (*)");
    return filters;
}

QString DefaultSuffix(std::string_view extension)
{
    if (extension.starts_with('.'))
        extension.remove_prefix(1);
    return ToQt(extension);
}

}
