#pragma once

#include <QColor>
#include <QTextDocument>

#include <string_view>

namespace tarvex {

/// Puts rich text into a document in the document's own font; text of the usual size gets that font's size. Colours
/// that could not be read on `background` are left out. A text that is refused gives a sentence that says so.
void ShowRtf(QTextDocument& document, std::string_view rtf, const QColor& background);

}
