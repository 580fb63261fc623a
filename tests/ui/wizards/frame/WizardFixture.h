#pragma once

#include "comm/DemoDevice.h"
#include "model/RegisterObject.h"
#include "support/DocumentFakes.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/IWizardProduct.h"

namespace tarvex {

/// A product of two elements: "Gain" runs reversed over its register, "Tune" forward from 0 to 15.
class TinyProduct : public IWizardProduct {
public:
    WizardDescription Describe() override
    {
        WizardDescription description{"Tiny_Wizard", "Vexlon Wizard", "Tiny - Display Adjustments", "USB-HID Device"};
        description.options = {{"ReSync", "ReSync Monitor", [this] { ++resyncs; }},
                               {"Resolution",
                                "Set Resolution",
                                {},
                                false,
                                true,
                                {{"Resolution0_0", "640x480", [this] { ++resolutions; }, true},
                                 {"Resolution0_1", "800x600", [this] { ++resolutions; }, true}}}};
        description.panels = {"Resolution"};
        description.elements = {{"Gain", "red_gain.jpg"}, {"Tune", "fine_tune.jpg"}};
        return description;
    }
    void Attach(IWizardHost& host) override { host_ = &host; }
    BoardImage& Image() override { return image_; }
    bool Init(const std::shared_ptr<IProduct>&) override { return true; }
    void SetCurrentProduct(const std::string& product) override
    {
        host_->View().ShowTree({{"root", product, {{"leaf1", "Channel 1"}, {"leaf2", "Channel 2"}}}});
        if (host_->CheckConnection())
            host_->SelectAgain();
    }
    void NodeClicked(const std::string& key) override { nodes.push_back(key); }
    ElementBounds Bounds(const std::string& element) override
    {
        return element == "Gain" ? ElementBounds{0, 254} : ElementBounds{15, 0};
    }
    std::int32_t ReadElement(const std::string& element) override
    {
        return Of(element).ReadValue(host_->Device(), kNoAspi);
    }
    bool WriteElement(const std::string& element, std::int32_t value) override
    {
        Of(element).value(value);
        Of(element).WriteValue(host_->Device(), kNoAspi);
        return true;
    }
    std::string HelpPicture(const std::string&) override { return "Vexlon.jpg"; }
    void Undo(std::int32_t code) override { undone = code; }
    bool OpenFile(const std::string& path) override { return host_->Controller().InitDeviceFromFile(path); }

    IWizardHost& Host() { return *host_; }

    std::int32_t undone = 0;
    int resyncs = 0;
    int resolutions = 0;
    std::vector<std::string> nodes;

private:
    RegisterObject& Of(const std::string& element) { return *host_->Controller().GetI2CRegisterByName(element); }

    IWizardHost* host_ = nullptr;
    BoardImage image_{[](const RegisterObject&) { return kNoAspi; }};
};

/// A real document on fakes with the board of the tiny product on a USB link.
class WizardTest : public testing::Test, protected DocumentFakes {
protected:
    using Place = FakeDevice::Place;
    static constexpr Place kGain{0x451, 0x20}, kTune{0x451, 0x21};

    WizardTest()
    {
        InitFileBuilder file;
        file.device = "Vexlon";
        file.registers = RegisterXml("Gain", "20") + RegisterXml("Tune", "21");
        file.properties =
            PropertyXml("Gain", Xml("HelpTip", "gain.rtf") + Xml("Description", "Amplifies") + FieldXml("F", "Gain"));
        InitFile() = file.Text();
        files_.files["/prog/HelpTips/gain.rtf"] = "{\\rtf1 gain}";
        files_.files["/prog/HelpTips/CommunicationFailure.rtf"] = "{\\rtf1 lost}";
        services_.links["Demo"] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        services_.links["USB-HID Device"] = [this] { return link_; };
        usb_->type = "USB-HID Device";
        usb_->memory = {{kGain, {200}}, {kTune, {10}}};
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
        document_->SelectCommLink("USB-HID Device");
        document_->controller().GetDeviceNames(kAllOptions, kRegisterProtocol); // as the main window does
        document_->controller().InitDevice("Vexlon");
    }

    std::vector<Bytes> Writes() const
    {
        std::vector<Bytes> written;
        for (const auto& each : usb_->transfers)
            if (each.kind == FakeDevice::Kind::Write)
                written.push_back(each.bytes);
        return written;
    }

    FakeWait wait_;
    FakeMainView mainView_{journal_};
    std::shared_ptr<FakeDevice> usb_ = std::make_shared<FakeDevice>();
    std::shared_ptr<IDevice> link_ = usb_; ///< what the program makes as its USB link
    std::unique_ptr<Document> document_;
};

}
