#include "config/TarvexData.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Version.h"
#include "comm/FunctionalComponent.h"
#include "comm/Products.h"
#include "config/InitFileQueries.h"
#include "platform/xml/XmlFiles.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int32_t kErrInvalidFile = 1001;

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

bool TarvexData::InitToRead(const std::string& path)
{
    const bool wasInitialized = initialized_;
    CloseFile();
    if (wasInitialized || !files_.FileExists(path))
        return false;
    OpenXMLFile(path);
    if (!MeetsMinimum(document_.Root())) {
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
    RequireInitialized();
    return document_.Root();
}

std::string TarvexData::Version() const { return std::string(RootNode().Attribute("version")); }

std::int32_t TarvexData::VendorID() const { return ParseHex(RootNode().ChildContent("VID"), "TarvexData::VendorID"); }

bool TarvexData::CheckVendorID(std::int32_t vendorId) const
{
    if (!EqualsIgnoringCase(RootNode().ChildContent("VID"), ToHex(vendorId, 4)))
        Raise(kErrInvalidFile, "TarvexData::CheckVendorID",
              "Supplied vendorID parameter does not match the VID in " + path_);
    return true;
}

bool TarvexData::CheckFileVersion(const std::string& path) const
{
    RequireInitialized();
    XmlDocument other;
    return MeetsMinimum(RootOf(path, other));
}

bool TarvexData::CheckForProduct(const std::string& path, const std::string& product) const
{
    RequireInitialized();
    if (product.empty() || !files_.FileExists(path))
        return false;
    XmlDocument other;
    const XmlElement root = RootOf(path, other);
    return root &&
           (DescribesProduct(root, "ProductDescription", product) || DescribesProduct(root, "Product", product));
}

std::vector<std::string> TarvexData::ProductNameList() const
{
    const auto components = FunctionalComponents(RootNode());
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
    return FunctionalComponent::GetProductCommLinks(FindProduct(RootNode(), product));
}

std::shared_ptr<IProduct> TarvexData::GetProduct(std::int32_t boardId, std::int32_t) const
{
    const auto ids = RootNode().Descendants("BoardID");
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
    document_ = XmlDocument();
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
    if (!LoadXmlFile(files_, path, document_))
        Raise(403, "TarvexData::OpenXMLFile", "Failed to open " + path + "-" + document_.LastErrorText());
}

XmlElement TarvexData::RootOf(const std::string& path, XmlDocument& other) const
{
    if (path == path_)
        return document_.Root();
    return LoadXmlFile(files_, path, other) ? other.Root() : XmlElement();
}

}
