#include "platform/xml/XmlGuard.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace tarvex {

namespace {

// What a byte may be. The pieces of an init file are short: one look into a table for each byte takes half the time
// that searches from piece to piece take.
using Kind = std::uint8_t;
constexpr Kind kBlank = 1;
constexpr Kind kNameStart = 2;
constexpr Kind kNameLetter = 4;
constexpr Kind kEndsText = 8;
constexpr Kind kEndsValue = 16;

constexpr std::array<std::uint8_t, 256> KindsOfBytes()
{
    std::array<std::uint8_t, 256> kinds{};
    for (unsigned byte = 0; byte < kinds.size(); ++byte) {
        const bool starts =
            (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte == ':' || byte >= 0x80;
        const bool continues = starts || (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
        const bool blank = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
        const bool markup = byte == '<' || byte == '&';
        kinds[byte] = static_cast<std::uint8_t>((blank ? kBlank : 0) | (starts ? kNameStart : 0) |
                                                (continues ? kNameLetter : 0) | (markup ? kEndsText : 0) |
                                                (markup || byte == '"' || byte == '\'' ? kEndsValue : 0));
    }
    return kinds;
}

constexpr std::array<std::uint8_t, 256> kKinds = KindsOfBytes();

bool Is(char letter, Kind kind) { return (kKinds[static_cast<unsigned char>(letter)] & kind) != 0; }

/// Whether XML lets a document hold the character of this number.
bool IsCharacter(std::uint32_t code)
{
    if (code < 0x20)
        return code == '\t' || code == '\n' || code == '\r';
    return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

/// `name` is what stands between the & and the semicolon.
bool IsKnownReference(std::string_view name)
{
    if (!name.starts_with('#'))
        return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
    const int base = name.starts_with("#x") ? 16 : 10;
    name.remove_prefix(base == 16 ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, base);
    return error == std::errc() && end == name.data() + name.size() && IsCharacter(code);
}

/// Walks over the markup of one document by the library's own rules of where each piece ends. Throws XmlRefusal, which
/// never leaves this file.
class Scanner {
    static constexpr std::size_t kLongestReference = 64;

public:
    explicit Scanner(std::string_view text) : text_(text) {}

    void Run()
    {
        while (position_ < text_.size())
            Letter() == '<' ? Markup() : Text();
        if (depth_ > 0)
            Refuse("the document ends inside an element");
        if (!rootSeen_)
            Refuse("there is no root element");
    }

private:
    [[noreturn]] void Refuse(std::string text) const { throw XmlRefusal{position_, std::move(text)}; }

    char Letter() const { return position_ < text_.size() ? text_[position_] : '\0'; }

    bool At(std::string_view piece) const { return text_.substr(position_, piece.size()) == piece; }

    /// Goes on to the next byte that is (or is not) of the kind.
    void SkipTo(Kind kind)
    {
        while (position_ < text_.size() && !Is(text_[position_], kind))
            ++position_;
    }

    void SkipOver(Kind kind)
    {
        while (position_ < text_.size() && Is(text_[position_], kind))
            ++position_;
    }

    void Text()
    {
        if (depth_ == 0) {
            SkipOver(kBlank);
            if (position_ < text_.size() && Letter() != '<')
                Refuse("there is text outside the root element");
            return;
        }
        for (SkipTo(kEndsText); Letter() == '&'; SkipTo(kEndsText))
            Reference();
    }

    void Reference()
    {
        const std::size_t semicolon = text_.substr(0, position_ + kLongestReference).find(';', position_);
        if (semicolon == std::string_view::npos ||
            !IsKnownReference(text_.substr(position_ + 1, semicolon - position_ - 1)))
            Refuse("the & does not begin a known entity or character reference");
        position_ = semicolon;
    }

    void CountPiece()
    {
        if (++pieces_ > kXmlMaxPieces)
            Refuse("there are more than " + std::to_string(kXmlMaxPieces) + " tags and attributes");
    }

    void Markup()
    {
        CountPiece();
        switch (position_ + 1 < text_.size() ? text_[position_ + 1] : '\0') {
        case '!':
            return CommentOrData();
        case '?':
            return Instruction();
        case '/':
            return EndTag();
        default:
            return StartTag();
        }
    }

    void CommentOrData()
    {
        if (At("<!--"))
            SkipPast("-->", 4, "the comment is not closed");
        else if (At("<![CDATA["))
            CharacterData();
        else
            Refuse("a document type declaration is not allowed");
    }

    void SkipPast(std::string_view closing, std::size_t openingSize, const char* missing)
    {
        const std::size_t end = text_.find(closing, position_ + openingSize);
        if (end == std::string_view::npos)
            Refuse(missing);
        position_ = end + closing.size();
    }

    void CharacterData()
    {
        if (depth_ == 0)
            Refuse("there is text outside the root element");
        SkipPast("]]>", 9, "the CDATA section is not closed");
    }

    void Instruction()
    {
        const std::string_view target = text_.substr(position_ + 2, 4);
        const bool isDeclaration = (target.starts_with('x') || target.starts_with('X')) &&
                                   EqualsIgnoringCase(target.substr(0, 3), "xml") && !Is(target.back(), kNameLetter);
        if (isDeclaration && position_ != 0)
            Refuse("the XML declaration does not stand at the beginning");
        SkipPast("?>", 2, "the processing instruction is not closed");
    }

    void EndTag()
    {
        if (depth_ == 0)
            Refuse("there is an end tag without a start tag");
        SkipPast(">", 2, "the end tag is not closed");
        --depth_;
    }

    void StartTag()
    {
        if (depth_ == 0 && rootSeen_)
            Refuse("there is more than one root element");
        if (depth_ == kXmlMaxDepth)
            Refuse("elements are nested more than " + std::to_string(kXmlMaxDepth) + " deep");
        rootSeen_ = true;
        ++position_;
        Name("the < does not begin a tag");
        for (int attributes = 0; !TagEnd(); ++attributes) {
            if (attributes == kXmlMaxAttributes)
                Refuse("an element has more than " + std::to_string(kXmlMaxAttributes) + " attributes");
            Attribute();
        }
    }

    /// Goes over blanks and the end of a start tag; false when an attribute begins here.
    bool TagEnd()
    {
        const std::size_t before = position_;
        SkipBlanks();
        const bool isEmpty = At("/>");
        if (!isEmpty && Letter() != '>') {
            if (position_ == before || position_ == text_.size())
                Refuse("the start tag is not well-formed");
            return false;
        }
        position_ += isEmpty ? 2 : 1;
        depth_ += isEmpty ? 0 : 1;
        return true;
    }

    void Attribute()
    {
        CountPiece();
        Name("an attribute name is expected");
        SkipBlanks();
        if (Letter() != '=')
            Refuse("the attribute has no value");
        ++position_;
        SkipBlanks();
        const char quote = Letter();
        if (quote != '"' && quote != '\'')
            Refuse("the attribute value has no quotation marks");
        const std::size_t opening = position_++;
        for (SkipTo(kEndsValue); Letter() != quote; SkipTo(kEndsValue)) {
            if (position_ == text_.size()) {
                position_ = opening; // where to look for the fault
                Refuse("the attribute value is not closed");
            }
            if (Letter() == '<')
                Refuse("the attribute value holds a <");
            if (Letter() == '&')
                Reference();
            else
                ++position_;
        }
        ++position_;
    }

    void Name(const char* missing)
    {
        if (!Is(Letter(), kNameStart))
            Refuse(missing);
        SkipOver(kNameLetter);
    }

    void SkipBlanks() { SkipOver(kBlank); }

    std::string_view text_;
    std::size_t position_ = 0;
    int depth_ = 0;
    int pieces_ = 0;
    bool rootSeen_ = false;
};

/// What the declaration names as encoding, or nothing.
std::string_view DeclaredEncoding(std::string_view text)
{
    if (!text.starts_with("<?xml"))
        return {};
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t word = declaration.find("encoding");
    const std::size_t opening = declaration.find_first_of("\"'", word);
    if (word == std::string_view::npos || opening == std::string_view::npos)
        return {};
    const std::string_view rest = declaration.substr(opening + 1);
    return rest.substr(0, rest.find(declaration[opening]));
}

/// ASCII means the same in every encoding that leaves ASCII bytes alone, whatever the declaration names.
bool IsOtherEncoding(std::string_view text)
{
    const std::string_view name = DeclaredEncoding(text);
    if (name.empty() || EqualsIgnoringCase(name, "UTF-8") || EqualsIgnoringCase(name, "UTF8"))
        return false;
    return std::any_of(text.begin(), text.end(), [](char letter) { return static_cast<unsigned char>(letter) > 0x7F; });
}

std::string BadByteText(std::string_view text, std::size_t bad)
{
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") || text.substr(0, 2).find('\0') != text.npos)
        return "the text is not in UTF-8";
    const auto byte = static_cast<unsigned char>(text[bad]);
    if (byte >= 0x80)
        return "the bytes are not valid UTF-8";
    return byte == 0 ? "there is a NUL byte" : "there is a control character";
}

std::optional<XmlRefusal> CheckBytes(std::string_view text)
{
    if (text.size() > kXmlMaxBytes)
        return XmlRefusal{0, "the document is larger than 64 MiB"};
    const std::size_t bad = FindBadByte(text);
    if (bad != std::string_view::npos)
        return XmlRefusal{bad, BadByteText(text, bad)};
    if (IsOtherEncoding(text))
        return XmlRefusal{0, "the declared encoding is not UTF-8"};
    return std::nullopt;
}

}

std::optional<XmlRefusal> CheckXml(std::string_view text)
{
    if (auto refusal = CheckBytes(text))
        return refusal;
    try {
        Scanner(text).Run();
    } catch (const XmlRefusal& refusal) {
        return refusal;
    }
    return std::nullopt;
}

}
