#include "ui/wizards/frame/RtfReader.h"

#include "ui/wizards/frame/RtfText.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tarvex {

namespace {

constexpr std::int32_t kLargestHalfPoints = 400;
constexpr std::size_t kLongestWord = 32;
constexpr std::size_t kMostDigits = 9;
constexpr std::size_t kMostColors = 256;

/// What the text of a group is.
enum class Destination { Body, Colors, Skipped };

struct Group {
    RtfStyle style;
    Destination destination = Destination::Body;
    std::int32_t fallbackLength = 1; ///< characters behind a \u that stand for it in older readers
};

struct ControlWord {
    std::string_view name;
    std::optional<std::int32_t> number;

    bool IsOn() const { return number.value_or(1) != 0; }
};

/// Destinations that hold no text to be shown.
constexpr std::array<std::string_view, 12> kSkippedDestinations{"fonttbl", "stylesheet", "info",      "pict",
                                                                "object",  "header",     "footer",    "footnote",
                                                                "fldinst", "listtable",  "generator", "xe"};

struct NamedCharacter {
    std::string_view name;
    std::uint32_t character;
};

constexpr std::array<NamedCharacter, 9> kNamedCharacters{{{"tab", '\t'},
                                                          {"lquote", 0x2018},
                                                          {"rquote", 0x2019},
                                                          {"ldblquote", 0x201C},
                                                          {"rdblquote", 0x201D},
                                                          {"bullet", 0x2022},
                                                          {"endash", 0x2013},
                                                          {"emdash", 0x2014},
                                                          {"line", 0x2028}}};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::optional<std::uint32_t> HexDigit(char c)
{
    if (IsDigit(c))
        return static_cast<std::uint32_t>(c - '0');
    const char lower = static_cast<char>(c | 0x20);
    if (lower >= 'a' && lower <= 'f')
        return static_cast<std::uint32_t>(lower - 'a' + 10);
    return std::nullopt;
}

/// One run over one rich text.
class Reader {
public:
    Reader(std::string_view rtf, IRtfSink& sink) : rest_(rtf), text_(sink) {}

    RtfResult Run()
    {
        groups_.emplace_back();
        while (!rest_.empty() && !tooDeep_)
            ReadNext();
        text_.Flush();
        return tooDeep_ ? RtfResult::TooDeep : RtfResult::Read;
    }

private:
    Group& Now() { return groups_.back(); }

    char Take()
    {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    void ReadNext()
    {
        const char c = Take();
        if (c == '{')
            BeginGroup();
        else if (c == '}')
            EndGroup();
        else if (c == '\\')
            ReadControl();
        else if (c != '\r' && c != '\n' && c != '\0')
            Plain(static_cast<unsigned char>(c));
    }

    void BeginGroup()
    {
        fallback_ = 0;
        tooDeep_ = groups_.size() > kDeepestRtf;
        groups_.push_back(Group(Now()));
    }

    void EndGroup()
    {
        fallback_ = 0;
        if (groups_.size() > 1)
            groups_.pop_back();
    }

    /// A character of the text in the code page.
    void Plain(unsigned char c)
    {
        if (fallback_ > 0)
            --fallback_;
        else if (Now().destination == Destination::Colors && c == ';')
            EndColor();
        else if (Now().destination == Destination::Body)
            text_.Add(FromWindows1252(c), Now().style);
    }

    void Character(std::uint32_t character)
    {
        if (Now().destination == Destination::Body)
            text_.Add(character, Now().style);
    }

    void ReadControl()
    {
        if (rest_.empty())
            return;
        if (IsLetter(rest_.front()))
            Obey(TakeWord());
        else
            ReadSymbol(Take());
    }

    void ReadSymbol(char symbol)
    {
        switch (symbol) {
        case '\'':
            ReadHexCharacter();
            break;
        case '*':
            Now().destination = Destination::Skipped;
            break;
        case '~':
            Character(0xA0);
            break;
        case '_':
            Character(0x2011);
            break;
        case '\r':
        case '\n':
            EndParagraph();
            break;
        case '\\':
        case '{':
        case '}':
            Plain(static_cast<unsigned char>(symbol));
            break;
        default:
            break;
        }
    }

    void ReadHexCharacter()
    {
        if (rest_.size() < 2)
            return;
        const auto high = HexDigit(rest_[0]);
        const auto low = HexDigit(rest_[1]);
        if (!high || !low)
            return;
        rest_.remove_prefix(2);
        Plain(static_cast<unsigned char>(*high * 16 + *low));
    }

    ControlWord TakeWord()
    {
        ControlWord word;
        const std::size_t letters =
            static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), IsLetter) - rest_.begin());
        word.name = rest_.substr(0, std::min(letters, kLongestWord));
        rest_.remove_prefix(letters);
        TakeNumber(word);
        if (!rest_.empty() && rest_.front() == ' ')
            rest_.remove_prefix(1);
        return word;
    }

    void TakeNumber(ControlWord& word)
    {
        const bool negative = rest_.size() > 1 && rest_.front() == '-' && IsDigit(rest_[1]);
        if (negative)
            rest_.remove_prefix(1);
        std::int32_t number = 0;
        std::size_t digits = 0;
        for (; !rest_.empty() && IsDigit(rest_.front()); ++digits) {
            const char digit = Take();
            if (digits < kMostDigits)
                number = number * 10 + (digit - '0');
        }
        if (digits > 0)
            word.number = negative ? -number : number;
    }

    void Obey(const ControlWord& word)
    {
        if (ObeyStyle(word) || ObeyText(word) || ObeyColorTable(word))
            return;
        if (word.name == "bin")
            rest_.remove_prefix(std::min(rest_.size(), static_cast<std::size_t>(std::max(word.number.value_or(0), 0))));
        else if (word.name == "uc")
            Now().fallbackLength = std::clamp(word.number.value_or(1), 0, 100);
        else if (std::find(kSkippedDestinations.begin(), kSkippedDestinations.end(), word.name) !=
                 kSkippedDestinations.end())
            Now().destination = Destination::Skipped;
    }

    bool ObeyStyle(const ControlWord& word)
    {
        RtfStyle& style = Now().style;
        if (word.name == "b")
            style.bold = word.IsOn();
        else if (word.name == "i")
            style.italic = word.IsOn();
        else if (word.name == "ul")
            style.underline = word.IsOn();
        else if (word.name == "ulnone")
            style.underline = false;
        else if (word.name == "plain")
            style = {};
        else if (word.name == "fs")
            style.halfPoints = std::clamp(word.number.value_or(RtfStyle{}.halfPoints), 2, kLargestHalfPoints);
        else if (word.name == "cf")
            style.color = ColorAt(word.number.value_or(0));
        else
            return false;
        return true;
    }

    bool ObeyText(const ControlWord& word)
    {
        if (word.name == "par" || word.name == "sect" || word.name == "page") {
            EndParagraph();
            return true;
        }
        if (word.name == "u") {
            const auto unit = static_cast<std::uint16_t>(word.number.value_or(0));
            if (Now().destination == Destination::Body)
                text_.AddUtf16(unit, Now().style);
            fallback_ = Now().fallbackLength;
            return true;
        }
        const auto* named = std::find_if(kNamedCharacters.begin(), kNamedCharacters.end(),
                                         [&](const NamedCharacter& each) { return each.name == word.name; });
        if (named != kNamedCharacters.end())
            Character(named->character);
        return named != kNamedCharacters.end();
    }

    bool ObeyColorTable(const ControlWord& word)
    {
        const auto part = [&] { return static_cast<std::uint32_t>(std::clamp(word.number.value_or(0), 0, 255)); };
        if (word.name == "colortbl")
            Now().destination = Destination::Colors;
        else if (word.name == "red")
            nextColor_ = (nextColor_.value_or(0) & 0x00FFFF) | part() << 16;
        else if (word.name == "green")
            nextColor_ = (nextColor_.value_or(0) & 0xFF00FF) | part() << 8;
        else if (word.name == "blue")
            nextColor_ = (nextColor_.value_or(0) & 0xFFFF00) | part();
        else
            return false;
        return true;
    }

    void EndColor()
    {
        if (colors_.size() < kMostColors)
            colors_.push_back(nextColor_);
        nextColor_.reset();
    }

    std::optional<std::uint32_t> ColorAt(std::int32_t index) const
    {
        const auto place = static_cast<std::size_t>(std::max(index, 0));
        return place < colors_.size() ? colors_[place] : std::nullopt;
    }

    void EndParagraph()
    {
        if (Now().destination == Destination::Body)
            text_.EndParagraph();
    }

    std::string_view rest_;
    RtfText text_;
    std::vector<Group> groups_;
    std::vector<std::optional<std::uint32_t>> colors_;
    std::optional<std::uint32_t> nextColor_;
    std::int32_t fallback_ = 0;
    bool tooDeep_ = false;
};

}

RtfResult ReadRtf(std::string_view rtf, IRtfSink& sink)
{
    if (rtf.size() > kLargestRtf)
        return RtfResult::TooLarge;
    if (!rtf.starts_with("{\\rtf"))
        return RtfResult::NotRichText;
    return Reader(rtf, sink).Run();
}

}
