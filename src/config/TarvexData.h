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
/// through CloseFile. Every operation but InitToRead, IsInitialized and LastErrorText raises 1000 while it is not
/// initialised.
class TarvexData {
public:
    TarvexData(const ProgramState& state, IFileSystem& files);

    /// Loads a file whose version is at least the minimum in force. False when the file is not there or too old, and
    /// when the model is initialised already, which it is no longer then. Raises 403 for a file that cannot be loaded.
    bool InitToRead(const std::string& path);
    bool IsInitialized() const { return initialized_; }
    /// Why the last file could not be loaded; empty when it could.
    const std::string& LastErrorText() const { return document_.LastErrorText(); }
    const std::string& Path() const;
    XmlElement RootNode() const;
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
    /// The root of a file: of the one in use, or of one loaded into `other`; none when that fails.
    XmlElement RootOf(const std::string& path, XmlDocument& other) const;

    const ProgramState& state_;
    IFileSystem& files_;
    std::string path_;
    XmlDocument document_;
    bool initialized_ = false;
};

}
