#include "config/TarvexData.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Version.h"
#include "comm/FunctionalComponent.h"
#include "comm/Products.h"
#include "config/InitFileQueries.h"
#include "platform/xml/XmlFiles.h"
#include "platform/xml/XmlGuard.h"

#include <algorithm>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace tarvex {

namespace {

constexpr std::int32_t kErrInvalidFile = 1001;

constexpr std::size_t kLargeFile = 1 << 20;

/// A tree lies in the heap among registers made from it, so that the heap does not give its place back by itself.
void EndLargeTree(const XmlDocument* tree)
{
    delete tree;
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

bool DescribesProduct(XmlElement root, std::string_view tag, std::string_view product)
{
    const auto holders = root.Descendants(tag);
    return std::any_of(holders.begin(), holders.end(), [product](XmlElement holder) {
        for (auto name = holder.Child("Name"); name; name = name.NextSame())
            if (name.Content() == product)
                return true;
        return false;
    });
}

std::shared_ptr<EnclosureBoard> DoCreateProduct(std::string_view className)
{
    if (className == "CendraIOBoard")
        return std::make_shared<CendraIOBoard>();
    if (className == "OssaryIOBoard")
        return std::make_shared<Ossary>();
    Raise(kErrInvalidFile, "TarvexData::DoCreateProduct", "Unable to find IProductClassName");
}

}

TarvexData::TarvexData(const ProgramState& state, IFileSystem& files)
    : state_(state), files_(files), path_(state.programFolder + "/TarvexData.xml")
{}

TarvexData::~TarvexData() { RemoveWorkingFile(); }

bool TarvexData::InitToRead(const std::string& path)
{
    const bool wasInitialized = initialized_;
    CloseFile();
    if (wasInitialized || !files_.FileExists(path))
        return false;
    OpenXMLFile(path);
    if (!MeetsMinimum(kept_->Root())) {
        CloseFile();
        return false;
    }
    path_ = path;
    initialized_ = true;
    return true;
}

const std::string& TarvexData::Path() const
{
    RequireInitialized();
    return path_;
}

XmlElement TarvexData::RootNode() const
{
    kept_ = Tree();
    return kept_->Root();
}

std::shared_ptr<const XmlDocument> TarvexData::Tree() const
{
    RequireInitialized();
    auto tree = tree_.lock();
    if (!tree) {
        tree = MakeTree();
        tree_ = tree;
    }
    return tree;
}

std::string TarvexData::Version() const { return std::string(Tree()->Root().Attribute("version")); }

std::int32_t TarvexData::VendorID() const
{
    return ParseHex(Tree()->Root().ChildContent("VID"), "TarvexData::VendorID");
}

bool TarvexData::CheckVendorID(std::int32_t vendorId) const
{
    if (!EqualsIgnoringCase(Tree()->Root().ChildContent("VID"), ToHex(vendorId, 4)))
        Raise(kErrInvalidFile, "TarvexData::CheckVendorID",
              "Supplied vendorID parameter does not match the VID in " + path_);
    return true;
}

bool TarvexData::CheckFileVersion(const std::string& path) const
{
    RequireInitialized();
    return MeetsMinimum(TreeOf(path)->Root());
}

bool TarvexData::CheckForProduct(const std::string& path, const std::string& product) const
{
    RequireInitialized();
    if (product.empty() || !files_.FileExists(path))
        return false;
    const auto tree = TreeOf(path);
    const XmlElement root = tree->Root();
    return root &&
           (DescribesProduct(root, "ProductDescription", product) || DescribesProduct(root, "Product", product));
}

std::vector<std::string> TarvexData::ProductNameList() const
{
    const auto tree = Tree();
    const auto components = FunctionalComponents(tree->Root());
    if (components.empty())
        Raise(kErrInvalidFile, "TarvexData::ProductList property", "No Functional Components found in file " + path_);
    std::vector<std::string> names;
    for (const XmlElement component : components) {
        const auto parsed = FunctionalComponent::ParseProducts(component.Child("Option"));
        names.insert(names.end(), parsed.begin(), parsed.end());
    }
    return names;
}

std::vector<std::string> TarvexData::SupportedCommList(const std::string& product) const
{
    return FunctionalComponent::GetProductCommLinks(FindProduct(Tree()->Root(), product));
}

std::shared_ptr<IProduct> TarvexData::GetProduct(std::int32_t boardId, std::int32_t) const
{
    const auto tree = Tree();
    const auto ids = tree->Root().Descendants("BoardID");
    const auto found =
        std::find_if(ids.begin(), ids.end(), [boardId](XmlElement id) { return TryParseHex(id.Content()) == boardId; });
    if (found == ids.end())
        return nullptr;
    const XmlElement description = found->Parent();
    if (description.Tag() != "ProductDescription")
        Raise(kErrInvalidFile, "TarvexData::GetProduct", "Invalid XML file");
    auto product = DoCreateProduct(description.ChildContent("IProductClassName"));
    product->SetBoardID(boardId);
    return product;
}

void TarvexData::CloseFile()
{
    RemoveWorkingFile();
    written_.reset();
    kept_.reset();
    tree_.reset();
    text_ = std::string();
    lastError_.clear();
    initialized_ = false;
}

void TarvexData::RequireInitialized() const
{
    if (!initialized_)
        Raise(1000, "TarvexData", "TarvexData must be initialized before use.");
}

bool TarvexData::MeetsMinimum(XmlElement root) const
{
    return root && IsVersionAtLeast(root.Attribute("version"), state_.g_minInitVersion);
}

void TarvexData::OpenXMLFile(const std::string& path)
{
    try {
        text_ = files_.ReadWholeFile(path, kXmlMaxBytes);
        const auto tree = MakeTree();
        lastError_ = tree->LastErrorText();
        kept_ = tree;
        tree_ = tree;
    } catch (const Error& error) {
        lastError_ = error.Description();
    }
    if (lastError_.empty())
        return;
    const std::string reason = std::move(lastError_);
    CloseFile();
    lastError_ = reason;
    Raise(403, "TarvexData::OpenXMLFile", "Failed to open " + path + "-" + lastError_);
}

std::shared_ptr<XmlDocument> TarvexData::MakeTree() const
{
    auto made = std::make_unique<XmlDocument>();
    made->LoadText(text_);
    if (text_.size() < kLargeFile)
        return made;
    return {made.release(), EndLargeTree};
}

std::shared_ptr<const XmlDocument> TarvexData::TreeOf(const std::string& path) const
{
    if (path == path_)
        return Tree();
    auto other = std::make_shared<XmlDocument>();
    LoadXmlFile(files_, path, *other);
    return other;
}

}
