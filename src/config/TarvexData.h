#pragma once

#include "base/ProgramState.h"
#include "comm/IProduct.h"
#include "comm/IProductCatalogue.h"
#include "platform/IFileSystem.h"
#include "platform/xml/XmlDocument.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class Enclosure;
class IClock;
class IConfigController;
class IDevice;
class IErrorLog;
class IProgress;

/// The XML model of one init or data file. It goes from uninitialised through InitToRead or InitToWrite to initialised,
/// and back through CloseFile. Every operation but those three, IsInitialized, LastErrorText and ReleaseTree raises
/// 1000 while it is not initialised. It keeps the text of the file and makes the tree, several times as large, only
/// while somebody needs it.
///
/// A data file is saved by a model of its own: InitToWrite, AddProduct, the values, Commit. Each of them leaves the
/// document whole in a working file in the temporary folder, and only Commit touches the user's file. One that fails
/// leaves the model uninitialised, so that nothing incomplete can be committed. One model writes at a time.
class TarvexData : public IProductCatalogue {
public:
    TarvexData(const ProgramState& state, IFileSystem& files);
    ~TarvexData() override;
    TarvexData(const TarvexData&) = delete;
    TarvexData& operator=(const TarvexData&) = delete;

    /// Loads a file whose version is at least the minimum in force. False when the file is not there or too old, and
    /// when the model is initialised already, which it is no longer then. Raises 403 for a file that cannot be loaded.
    bool InitToRead(const std::string& path);
    bool IsInitialized() const { return initialized_; }
    /// Why the last file could not be loaded; empty when it could.
    const std::string& LastErrorText() const { return lastError_; }
    const std::string& Path() const;
    /// The tree of the file, the same one for all who hold it at a time; it ends with the last of them.
    std::shared_ptr<const XmlDocument> Tree() const;
    /// The root element; valid until ReleaseTree, CloseFile or the first change of the document.
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
    std::shared_ptr<IProduct> GetProduct(std::int32_t boardId, std::int32_t enclosureType) const override;
    void CloseFile();

    /// Begins a data file with the vendor of the init file and the minimum version in force. The path, which may be
    /// empty, becomes the path in use; no file is there until Commit. False when the model is initialised already,
    /// which it is no longer then. Whoever holds the tree of the init file until AddProduct has it made only once.
    bool InitToWrite(const TarvexData& initFile, const std::string& path, IClock& clock);
    /// Copies the init file's component that holds the device, unless the document holds the device. Raises 5 for an
    /// unknown device, 1003 when the copy fails.
    void AddProduct(const TarvexData& initFile, const std::string& deviceName);
    /// Stores the values of all registers of the controller. Always true; raises 101 when the document has no list with
    /// a register's base address.
    bool WriteSimpleData(IConfigController& controller);
    /// Writes the enclosure over what the document holds of it. For the products that are the controller's device,
    /// which AddProduct has brought, every register is read from the board for every channel; a progress target is
    /// told each channel. Always true; raises 5 without that device, 0x80040001 when a register cannot be read.
    bool WriteEnclosureData(const Enclosure& enclosure, IConfigController& controller, IDevice& device,
                            IProgress* progress);
    /// Replaces the user's file, which becomes the path in use, in one step by what was written so far. On any failure
    /// the old file stays and the error of ReplaceFile reaches the caller, who may commit again.
    void Commit(const std::string& path);

    /// One enclosure for each that the file describes, without products. Raises 13 for an identity that is no number.
    std::vector<std::shared_ptr<Enclosure>> GetAllEnclosures(IErrorLog& errorLog) const;
    /// Board ids by slot of the enclosure with this network address; raises 1002 when the file has none.
    std::vector<std::int32_t> GetSlotPops(std::int32_t address) const;
    /// The stored value of a register for a channel. False, with `value` as it was, when the file has none and for the
    /// direction both.
    bool ReadChannelRegisterValue(const Enclosure& enclosure, const std::string& product, std::int16_t channel,
                                  ChannelDirection direction, const std::string& registerName,
                                  std::int32_t& value) const;

private:
    void RequireInitialized() const;
    bool MeetsMinimum(XmlElement root) const;
    void OpenXMLFile(const std::string& path);
    std::shared_ptr<XmlDocument> MakeTree() const;
    /// The tree of a file, of the one in use or of another; one without root when that cannot be loaded.
    std::shared_ptr<const XmlDocument> TreeOf(const std::string& path) const;
    /// Changes the document and saves it to the working file.
    void Change(const std::function<void(XmlElement root)>& change);
    void Save();
    void RemoveWorkingFile() noexcept;

    const ProgramState& state_;
    IFileSystem& files_;
    std::string path_;
    std::string text_; ///< kept, since a running program does not depend on its file staying where it was
    std::string lastError_;
    mutable std::shared_ptr<const XmlDocument> kept_;
    mutable std::weak_ptr<const XmlDocument> tree_;
    std::shared_ptr<XmlDocument> written_; ///< the tree of a model that writes
    std::string workingFile_;              ///< empty while there is none
    bool initialized_ = false;
};

}
