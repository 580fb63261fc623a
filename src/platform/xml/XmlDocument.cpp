#include "platform/xml/XmlDocument.h"

#include "platform/xml/XmlGuard.h"
#include "platform/xml/XmlParsing.h"

#include <pugixml.hpp>

namespace tarvex {

namespace {

/// Collects what is written. A carriage return of a text is written as a reference: read back raw, it would be taken
/// for a line end.
class TextWriter : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override
    {
        std::string_view piece(static_cast<const char*>(data), size);
        for (auto end = piece.find('\r'); end != std::string_view::npos; end = piece.find('\r')) {
            text.append(piece.substr(0, end)).append("&#13;");
            piece.remove_prefix(end + 1);
        }
        text.append(piece);
    }

    std::string text;
};

}

XmlDocument::XmlDocument() : document_(std::make_unique<pugi::xml_document>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

std::string XmlDocument::Version() { return "5.0.1"; }

bool XmlDocument::LoadText(std::string_view bytes)
{
    document_->reset();
    lastError_.clear();
    bytes = WithoutMark(bytes);
    if (const auto refusal = CheckXml(bytes)) {
        lastError_ = XmlPlace(bytes, refusal->offset) + ": " + refusal->text;
        return false;
    }
    const auto result = document_->load_buffer(bytes.data(), bytes.size(), kParsing, pugi::encoding_utf8);
    if (result)
        return true;
    document_->reset();
    lastError_ = XmlPlace(bytes, static_cast<std::size_t>(result.offset)) + ": " + result.description();
    return false;
}

XmlElement XmlDocument::CreateRoot(std::string_view tag)
{
    document_->reset();
    return XmlElement(document_->append_child(std::string(tag).c_str()).internal_object());
}

XmlElement XmlDocument::Root() const { return XmlElement(document_->document_element().internal_object()); }

std::string XmlDocument::ToText() const
{
    TextWriter writer;
    writer.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    document_->save(writer, "  ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(writer.text);
}

}
