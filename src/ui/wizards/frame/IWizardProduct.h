#pragma once

#include "comm/IProduct.h"
#include "comm/api/IDevice.h"
#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/frame/WizardDescription.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

class IWizardHost;
class TarvexData;

/// The two bounds of an element as the bar gets them. A first bound below the second one makes the bar run reversed.
struct ElementBounds {
    std::int32_t first = 0;
    std::int32_t second = 0;
};

/// Why no element can be adjusted now: text of the "Message" panel, and of the value label in red.
struct NoTarget {
    std::string message;
    std::string valueText;
};

/// What one product family plugs into the frame: its elements, tree, menus and special operations. It knows no window
/// toolkit; the frame calls it, and it works through the host. Operations with a body here are hooks that a product
/// overrides where it needs them. All errors that they raise reach the frame, which logs and shows them.
class IWizardProduct {
public:
    virtual ~IWizardProduct() = default;

    /// Asked once, when the window is built and before Attach. Handlers of its menu entries may keep `this`.
    virtual WizardDescription Describe() = 0;
    /// Hands over the frame, before everything below; it stays the same one.
    virtual void Attach(IWizardHost& host) = 0;
    /// Whether the registers hold what the board has. The frame attaches it, and forgets what was read when the link is
    /// lost or replaced, a write failed or a file was loaded; the product does where the board changes beside that.
    virtual BoardImage& Image() = 0;

    // Start and target.
    /// Binds the product to a board; element list and link are in place. False when the wizard cannot serve it. A board
    /// that does not answer is no reason: CheckConnection of the host shows that. `product` is the product object of
    /// the start, or none.
    virtual bool Init(const std::shared_ptr<IProduct>& product) = 0;
    /// Makes a product the target and shows its tree.
    virtual void SetCurrentProduct(const std::string& product) = 0;
    /// Another link has been put in place, or the first one, before Init: a product that listens to events of its own
    /// link subscribes here. The frame itself counts transfers.
    virtual void DeviceBound(const std::shared_ptr<IDevice>& device) { (void)device; }
    /// The frame has switched off the entries that are off while communication fails, or has switched them on again.
    virtual void MenusEnabled(bool enabled) { (void)enabled; }
    /// The link stands and is about to be used, or the main window has come up beside the wizard: reads the registers
    /// where they do not hold what the board has.
    virtual void CatchUp() { Image().CatchUp(); }
    /// The user clicked a node of the tree.
    virtual void NodeClicked(const std::string& key) = 0;
    /// The name in "Unable to establish communication with ..."; empty takes the controller's device name.
    virtual std::string TargetName() { return {}; }
    /// Another view changed the board (kinds as IMainView.h has them): what the product shows beside the element. True
    /// when the current element has to be read again.
    virtual bool UpdateUI(std::int32_t kind, const std::string& name)
    {
        (void)kind, (void)name;
        return true;
    }

    // Elements, by their names.
    /// None when elements can be read and written now.
    virtual std::optional<NoTarget> MissingTarget() { return std::nullopt; }
    virtual ElementBounds Bounds(const std::string& element) = 0;
    /// Reads the element's registers from the board and gives its value. Called inside the host's Read.
    virtual std::int32_t ReadElement(const std::string& element) = 0;
    /// Writes a value to the element's registers. Called inside the host's Write; afterwards the frame tells the other
    /// views. A product that may break off writes nothing and returns false: then nothing counts as changed.
    virtual bool WriteElement(const std::string& element, std::int32_t value) = 0;
    /// Value text for a position of the bar.
    virtual std::string ValueText(const std::string& element, std::int32_t position);
    /// Large step of the bar for a range of so many positions.
    virtual std::int32_t LargeStep(std::int32_t range);
    /// Help picture of an element, a file name in the picture folder.
    virtual std::string HelpPicture(const std::string& element) = 0;
    /// "Message" text when the link was down while an element was being selected; empty leaves the frame's.
    virtual std::string UnreadMessage(const std::string& element)
    {
        (void)element;
        return {};
    }

    // Menu commands of the frame.
    /// Undo with the code that the product gave to OfferUndo. The frame disables Undo afterwards.
    virtual void Undo(std::int32_t code) { (void)code; }
    /// The user chose a data file, which is not a reserved one: checks, loads and writes it. False when it was not
    /// applied, which the user has been told.
    virtual bool OpenFile(const std::string& path) = 0;
    /// After OpenFile, when the selected element has been read again: what else is shown of the new settings.
    virtual void FileOpened() {}
    /// Adds to a data file that holds the product what stands before the register values; false gives the saving up.
    virtual bool AddToFile(TarvexData& file)
    {
        (void)file;
        return true;
    }
    /// After a data file was saved.
    virtual void FileSaved() {}
    /// The window goes for good: lets go of everything that belongs to the board.
    virtual void Unload() {}
};

}
