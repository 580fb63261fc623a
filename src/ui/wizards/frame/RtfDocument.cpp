#include "ui/wizards/frame/RtfDocument.h"

#include "ui/common/WindowTools.h"
#include "ui/wizards/frame/RtfReader.h"

#include <QTextCursor>

#include <cmath>

namespace tarvex {

namespace {

constexpr double kSmallestContrast = 60;

// A paragraph beyond these goes on in a new one: laying one out takes time with the square of its length.
constexpr std::size_t kMostPieces = 200;
constexpr std::size_t kMostLetters = 4000;

double Brightness(const QColor& color) { return 0.30 * color.red() + 0.59 * color.green() + 0.11 * color.blue(); }

/// Writes into a document at its end.
class DocumentSink : public IRtfSink {
public:
    DocumentSink(QTextDocument& document, const QColor& background)
        : cursor_(&document), pointSize_(document.defaultFont().pointSizeF()), background_(background)
    {
        cursor_.beginEditBlock(); // else the document is laid out anew for each piece
    }
    ~DocumentSink() override { cursor_.endEditBlock(); }
    DocumentSink(const DocumentSink&) = delete;
    DocumentSink& operator=(const DocumentSink&) = delete;

    void Text(std::string_view text, const RtfStyle& style) override
    {
        const bool full = ++pieces_ > kMostPieces || (letters_ += text.size()) > kMostLetters;
        if (std::exchange(paragraphEnded_, false) || full) {
            cursor_.insertBlock();
            pieces_ = letters_ = 0;
        }
        cursor_.insertText(ToQt(text), FormatOf(style));
    }

    /// The last paragraph's end opens no empty one.
    void EndParagraph() override
    {
        if (std::exchange(paragraphEnded_, true))
            cursor_.insertBlock();
    }

    void Refuse(const QString& why)
    {
        cursor_.select(QTextCursor::Document);
        cursor_.removeSelectedText();
        cursor_.insertText(why, QTextCharFormat());
    }

private:
    QTextCharFormat FormatOf(const RtfStyle& style) const
    {
        QTextCharFormat format;
        if (style.bold)
            format.setFontWeight(QFont::Bold);
        format.setFontItalic(style.italic);
        format.setFontUnderline(style.underline);
        format.setFontPointSize(pointSize_ * style.halfPoints / RtfStyle{}.halfPoints);
        if (style.color && std::abs(Brightness(*style.color) - Brightness(background_)) >= kSmallestContrast)
            format.setForeground(QColor(*style.color));
        return format;
    }

    QTextCursor cursor_;
    double pointSize_;
    QColor background_;
    bool paragraphEnded_ = false;
    std::size_t pieces_ = 0; ///< of this paragraph, as the next
    std::size_t letters_ = 0;
};

}

void ShowRtf(QTextDocument& document, std::string_view rtf, const QColor& background)
{
    document.clear();
    document.setUndoRedoEnabled(false);
    DocumentSink sink(document, background);
    switch (ReadRtf(rtf, sink)) {
    case RtfResult::Read:
        break;
    case RtfResult::NotRichText:
        sink.Refuse("This Help Tip is not a rich-text file.");
        break;
    case RtfResult::TooLarge:
    case RtfResult::TooDeep:
        sink.Refuse("This Help Tip is too large to be shown.");
        break;
    }
}

}
