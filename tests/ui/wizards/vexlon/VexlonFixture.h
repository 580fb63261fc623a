#pragma once

#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "support/DocumentFakes.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "support/FakeWizardFrameView.h"
#include "ui/wizards/frame/WizardFrame.h"
#include "ui/wizards/vexlon/Vexlon.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tarvex {

/// A board of which some channels, by their product ids, do not answer.
class FiberBoard : public FakeDevice {
public:
    std::set<std::int32_t> deadIds;

private:
    std::int32_t IDevice_connect(std::int32_t productId, std::int32_t) override
    {
        connected = !deadIds.contains(productId);
        return connected ? 1 : 0;
    }
    bool IDevice_VerifyCommunications(std::int32_t, std::int32_t) override { return connected; }
};

/// The wizard in its frame, with the init file that the program comes with and a fake board on the USB link.
class VexlonTest : public testing::Test, protected DocumentFakes {
protected:
    using Values = std::vector<std::pair<std::string, int>>;

    VexlonTest()
    {
        std::stringstream text;
        text << std::ifstream(TARVEX_SHARE "/Tarvex.xml").rdbuf();
        InitFile() = text.str();
        services_.links["Demo"] = services_.links["USB-HID Device"] = [this] { return usb_; };
        usb_->type = "USB-HID Device";
        usb_->onTransfer = [this](const FakeDevice::Transfer& transfer) { Tell(transfer); };
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
        document_->controller().GetDeviceNames(kAllOptions, kRegisterProtocol); // as the main window does
        view_.barChanged = [this] { frame_.BarChanged(); };
        AddEntries(frame_.Description().options);
    }
    ~VexlonTest() override { frame_.Unload(); }

    void Start(const std::string& device, const std::string& product)
    {
        document_->controller().InitDevice(device);
        ASSERT_TRUE(frame_.Init(*document_, nullptr));
        frame_.SetCurrentProduct(product);
        usb_->transfers.clear();
    }
    void StartVexlon(const Values& board)
    {
        document_->controller().InitDevice("Vexlon");
        Fill(board);
        Start("Vexlon", "Vexlon");
    }
    void Fill(const Values& board)
    {
        for (const auto& [name, value] : board)
            Cell(name) = {static_cast<std::uint8_t>(value)};
    }
    void Choose(const std::string& entry) { frame_.Attempt(entries_.at(entry)); }
    void Select(const std::string& element)
    {
        view_.selected = element;
        frame_.ElementClicked(element);
    }
    FakeDevice::Place PlaceOf(const std::string& name)
    {
        const auto found = document_->controller().GetI2CRegisterByName(name);
        return {found->BaseAddress(), found->Address()};
    }
    Bytes& Cell(const std::string& name) { return usb_->memory[PlaceOf(name)]; }
    /// The writes since the last call, by register name.
    Values TakeWrites()
    {
        Values written;
        for (const auto& each : usb_->transfers)
            if (each.kind == FakeDevice::Kind::Write)
                written.emplace_back(NameAt({each.baseAddress, each.parameterId}), each.bytes.at(0));
        usb_->transfers.clear();
        return written;
    }
    std::string NameAt(FakeDevice::Place place)
    {
        for (std::int16_t i = 0; i < document_->controller().GetI2CRegisterCount(); ++i)
            if (const auto name = document_->controller().GetI2CRegister(i)->Name(); PlaceOf(name) == place)
                return name;
        return "unknown register";
    }
    // The fake board raises no events: what it does not answer is told as the USB link would.
    void Tell(const FakeDevice::Transfer& transfer)
    {
        const FakeDevice::Place place{transfer.baseAddress, transfer.parameterId};
        if (refused_.contains(place))
            usb_->memory[place] = refused_[place];
        if (usb_->mute.contains(place))
            frame_.Link().ehHIDDevice_ReadFailure(0, 0);
    }
    void AddEntries(const std::vector<MenuEntry>& menu)
    {
        for (const MenuEntry& each : menu) {
            entries_[each.name] = each.chosen;
            AddEntries(each.entries);
        }
    }

    std::shared_ptr<FiberBoard> usb_ = std::make_shared<FiberBoard>();
    std::map<FakeDevice::Place, Bytes> refused_; ///< registers that keep their bytes whatever is written
    FakeMainView mainView_{journal_};
    FakeWait wait_;
    std::unique_ptr<Document> document_;
    FakeWizardView self_{"wizard", script_};
    FakeWizardFrameView view_;
    Vexlon product_;
    WizardFrame frame_{self_, view_, product_,
                       WizardServices{state_, files_, clock_, prompts_, errors_, wait_, [] { return nullptr; }}};
    std::map<std::string, std::function<void()>> entries_;
};

}
