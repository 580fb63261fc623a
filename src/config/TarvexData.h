#pragma once

#include "base/ProgramState.h"
#include "comm/IProduct.h"
#include "platform/IFileSystem.h"
#include "platform/xml/XmlDocument.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

/// The XML model of one init or data file. It goes from uninitialised through InitToRead to initialised, and back
/// through CloseFile. Every operation but InitToRead, IsInitialized, LastErrorText and ReleaseTree raises 1000 while it
/// is not initialised. It keeps the text of the file and makes the tree, several times as large, only while somebody
/// needs it.
class TarvexData {
public:
    TarvexData(const ProgramState& state, IFileSystem& files);

    /// Loads a file whose version is at least the minimum in force. False when the file is not there or too old, and
    /// when the model is initialised already, which it is no longer then. Raises 403 for a file that cannot be loaded.
    bool InitToRead(const std::string& path);
    bool IsInitialized() const { return initialized_; }
    /// Why the last file could not be loaded; empty when it could.
    const std::string& LastErrorText() const { return lastError_; }
    const std::string& Path() const;
    /// The tree of the file, the same one for all who hold it at a time; it ends with the last of them.
    std::shared_ptr<const XmlDocument> Tree() const;
    /// The root element; valid until ReleaseTree or CloseFile.
    XmlElement RootNode() const;
    /// Lets go of the tree, which is kept from InitToRead on for the operations of a start, and from RootNode on.
    void ReleaseTree() { kept_.reset(); }
    std::string Version() const;
    std::int32_t VendorID() const;
    /// True when the file is of this vendor; raises 1001 otherwise.
    bool CheckVendorID(std::int32_t vendorId) const;
    /// Whether the root version of a file is at least the minimum in force; false for a file that cannot be loaded.
    bool CheckFileVersion(const std::string& path) const;
    /// Whether the named file describes the product.
    bool CheckForProduct(const std::string& path, const std::string& product) const;
    /// The product names of all functional components; raises 1001 when there is no component.
    std::vector<std::string> ProductNameList() const;
    /// Names of the links of a product, of whatever protocol.
    std::vector<std::string> SupportedCommList(const std::string& product) const;
    /// A board's product object; none for an unknown board id. Raises 1001 for a description without a product class.
    /// The enclosure type plays no part.
    std::shared_ptr<IProduct> GetProduct(std::int32_t boardId, std::int32_t enclosureType) const;
    void CloseFile();

private:
    void RequireInitialized() const;
    bool MeetsMinimum(XmlElement root) const;
    void OpenXMLFile(const std::string& path);
    std::shared_ptr<XmlDocument> MakeTree() const;
    /// The tree of a file, of the one in use or of another; one without root when that cannot be loaded.
    std::shared_ptr<const XmlDocument> TreeOf(const std::string& path) const;

    const ProgramState& state_;
    IFileSystem& files_;
    std::string path_;
    std::string text_; ///< kept, since a running program does not depend on its file staying where it was
    std::string lastError_;
    mutable std::shared_ptr<const XmlDocument> kept_;
    mutable std::weak_ptr<const XmlDocument> tree_;
    bool initialized_ = false;
};

}
