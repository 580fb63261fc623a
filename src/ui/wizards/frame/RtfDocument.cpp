#include "ui/wizards/frame/RtfDocument.h"

#include "ui/common/WindowTools.h"
#include "ui/wizards/frame/RtfReader.h"

#include <QTextCursor>

#include <cmath>

namespace tarvex {

namespace {

constexpr double kSmallestContrast = 60;

double Brightness(const QColor& color) { return 0.30 * color.red() + 0.59 * color.green() + 0.11 * color.blue(); }

/// Writes into a document at its end.
class DocumentSink : public IRtfSink {
public:
    DocumentSink(QTextDocument& document, QColor background)
        : cursor_(&document), pointSize_(document.defaultFont().pointSizeF()), background_(std::move(background))
    {}

    void Text(std::string_view text, const RtfStyle& style) override
    {
        if (std::exchange(paragraphEnded_, false))
            cursor_.insertBlock();
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
        cursor_.document()->clear();
        cursor_.insertText(why);
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
