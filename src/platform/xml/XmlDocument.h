#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
struct xml_node_struct;
class xml_document;
}

namespace tarvex {

/// A handle on one element of an XmlDocument, valid while the document lives and the element is not removed.
/// A handle on nothing is false; its texts are empty and it has no children.
class XmlElement {
public:
    XmlElement() = default;
    explicit XmlElement(pugi::xml_node_struct* node) : node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const XmlElement&) const = default;

    /// Valid while the element and its tag stay.
    std::string_view Tag() const;
    /// The element's own text, untrimmed: the first run of text directly inside it.
    std::string_view Content() const;
    void SetContent(std::string_view text);
    std::string_view Attribute(std::string_view name) const;
    bool HasAttribute(std::string_view name) const;
    /// Adds an attribute at the end or changes it in its place.
    void SetAttribute(std::string_view name, std::string_view value);

    XmlElement Parent() const;
    std::size_t ChildCount() const;
    XmlElement FirstChild() const;
    XmlElement NextSibling() const;
    /// The first child with the tag, or none.
    XmlElement Child(std::string_view tag) const;
    /// The next sibling with the same tag, or none.
    XmlElement NextSame() const;
    /// Content of the first child with the tag; empty when there is none.
    std::string_view ChildContent(std::string_view tag) const;
    std::vector<XmlElement> Children() const;
    std::vector<XmlElement> Children(std::string_view tag) const;
    XmlElement AddChild(std::string_view tag, std::string_view content = {});
    /// Adds a part of the document that these bytes, which were loaded before, hold: the element that `choose` finds
    /// below the document's root becomes a new last child. None when
    /// the bytes cannot be taken in or nothing was chosen.
    XmlElement AddPart(std::string_view bytes, const std::function<XmlElement(XmlElement root)>& choose);

    /// All elements below this one with the tag, at any depth, in document order.
    std::vector<XmlElement> Descendants(std::string_view tag) const;
    /// The first element below this one with the tag and exactly this content, or none.
    XmlElement FindDescendant(std::string_view tag, std::string_view content) const;

private:
    pugi::xml_node_struct* node_ = nullptr;
};

/// One XML document in memory. What it loads is checked before the library sees it: files above 64 MiB, elements
/// nested deeper than 64 or with more than 64 attributes, more than 4 million tags and attributes and document type
/// declarations are refused, so that no file, however hostile, costs more than about a second.
class XmlDocument {
public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;

    /// The version of this document interface, at least 5.0.1.
    static std::string Version();

    /// Loads a document from bytes; false leaves the document empty and sets LastErrorText (with line and column).
    bool LoadText(std::string_view bytes);
    /// Starts a new document with this root.
    XmlElement CreateRoot(std::string_view tag);
    /// The root element, or none.
    XmlElement Root() const;
    const std::string& LastErrorText() const { return lastError_; }
    /// Sets the error text that a failure outside the library gives, such as a file that cannot be read.
    void SetLastErrorText(std::string text) { lastError_ = std::move(text); }
    /// The document as UTF-8 text, indented, with a declaration.
    std::string ToText() const;

private:
    std::unique_ptr<pugi::xml_document> document_;
    std::string lastError_;
};

}
