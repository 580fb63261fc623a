#include "base/Error.h"
#include "comm/Enclosure.h"
#include "config/EnclosureWriter.h"
#include "config/IConfigController.h"
#include "config/InitFileQueries.h"
#include "config/MapFile.h"
#include "config/RegisterElements.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "platform/IClock.h"
#include "platform/xml/XmlGuard.h"

namespace tarvex {

namespace {

constexpr const char* kNamespace = "urn:tarvex:signal-configuration";

}

bool TarvexData::InitToWrite(const TarvexData& initFile, const std::string& path, IClock& clock)
{
    const bool wasInitialized = initialized_;
    CloseFile();
    if (wasInitialized)
        return false;
    if (!path.empty())
        path_ = path;
    const std::string vendorId = std::to_string(initFile.VendorID());
    written_ = std::make_shared<XmlDocument>();
    tree_ = written_;
    initialized_ = true;
    Change([&](XmlElement) {
        XmlElement root = written_->CreateRoot(kDataFileRoot);
        root.SetAttribute("xmlns", kNamespace);
        root.SetAttribute("lastModified", clock.NowText());
        root.SetAttribute("version", state_.g_minInitVersion);
        root.AddChild("VID", vendorId);
    });
    return true;
}

void TarvexData::AddProduct(const TarvexData& initFile, const std::string& deviceName)
{
    if (FindDevice(Tree()->Root(), deviceName).description)
        return;
    const auto tree = initFile.Tree();
    const XmlElement component = FindDevice(tree->Root(), deviceName).component;
    Change([&](XmlElement root) {
        if (!component)
            RaiseRuntime(kErrInvalidCall, "TarvexData::AddProduct");
        if (!root.AddCopy(component))
            Raise(1003, "TarvexData::CopyTree",
                  "unable to create newTree tree from " + files_.TemporaryFolder() +
                      "/_TarvexIntermediateFile.xml. Last Chilkat error is " + tree->LastErrorText());
    });
}

bool TarvexData::WriteSimpleData(IConfigController& controller)
{
    Change([&controller](XmlElement root) {
        const RegisterElements elements(root);
        const std::int16_t count = controller.GetI2CRegisterCount();
        for (std::int16_t i = 0; i < count; ++i)
            elements.StoreValue(*controller.GetI2CRegister(i));
    });
    return true;
}

bool TarvexData::WriteEnclosureData(const Enclosure& enclosure, IConfigController& controller, IDevice& device,
                                    IProgress* progress)
{
    Change([&](XmlElement root) { EnclosureWriter(root, controller, device, progress).Write(enclosure); });
    return true;
}

void TarvexData::Commit(const std::string& path)
{
    RequireInitialized();
    files_.ReplaceFile(path, text_);
    path_ = path;
    RemoveWorkingFile();
}

void TarvexData::Change(const std::function<void(XmlElement root)>& change)
{
    RequireInitialized();
    try {
        if (!written_) {
            written_ = MakeTree();
            tree_ = written_;
            kept_.reset();
        }
        change(written_->Root());
        Save();
    } catch (...) {
        CloseFile(); // what is half done cannot be committed
        throw;
    }
}

void TarvexData::Save()
{
    std::string text = written_->ToText();
    if (text.size() > kXmlMaxBytes)
        Raise(ObjectError(1), "TarvexData::Save", path_ + ": Too large to be opened again");
    const std::string workingFile =
        files_.TemporaryFolder() + "/Tarvex" + std::to_string(state_.instanceHandle) + "_TempSave_.xml";
    files_.WriteWorkingFile(workingFile, text);
    workingFile_ = workingFile;
    text_ = std::move(text);
}

void TarvexData::RemoveWorkingFile() noexcept
{
    if (!workingFile_.empty())
        files_.Remove(workingFile_);
    workingFile_.clear();
}

}
