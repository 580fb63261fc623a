#pragma once

#include "comm/DemoDevice.h"
#include "model/RegisterObject.h"
#include "support/DocumentFakes.h"
#include "support/ExpectError.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeProgress.h"
#include "support/FakeRegisterView.h"
#include "support/FakeWait.h"
#include "ui/advanced/BoardActions.h"

namespace tarvex {

using Names = std::vector<std::string>;
using Ids = std::vector<std::int32_t>;

inline constexpr int kRegisters = 8;

/// Part of an init or data file: the board "Vexlon" and its kin have the registers R0 to R7 at 20 to 27.
inline InitFileBuilder BoardFile(const std::string& device, const std::string& links, const std::string& more = {})
{
    InitFileBuilder file;
    file.component = device + " family";
    file.device = device;
    file.links = links;
    file.registers.clear();
    for (int i = 0; i < kRegisters; ++i)
        file.registers +=
            RegisterXml("R" + std::to_string(i), "2" + std::to_string(i), more + BitsXml("ReadWrite", "0:7"));
    file.properties = PropertyXml("Pair", FieldXml("Low", "R2") + FieldXml("High", "R5"));
    return file;
}

inline std::string Link(const std::string& name) { return InitFileBuilder::LinkXml(name, "NVSignalProcessing"); }

/// The actions on a board, with a real document on fakes. The program knows the links "Demo" and "USB-HID Device".
class BoardTest : public testing::Test, protected DocumentFakes {
protected:
    BoardTest()
    {
        const std::string usb = Link("USB-HID Device"), serial = Link("SerialZorbus");
        std::string others;
        for (const auto& [device, links] : {std::pair("Vexlon-Fx_Channel1", usb),
                                            {"Kestra-Fx", usb},
                                            {"Cendra", serial},
                                            {"Ossary", serial},
                                            {"Ossary-Plus", serial}})
            others += BoardFile(device, links).Component();
        InitFile() = BoardFile("Vexlon", usb + Link("Demo")).Text(others);
        services_.links["Demo"] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        services_.links["USB-HID Device"] = [this] {
            usb_ = std::make_shared<FakeDevice>();
            usb_->type = "USB-HID Device";
            usb_->name = "VEXLON scaler";
            usb_->connected = false;
            prepareLink_(*usb_);
            return usb_;
        };
        services_.wizards[WizardKind::Vexlon] = WizardMaker("wizard");
    }

    void Start()
    {
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
        board_ = std::make_unique<BoardActions>(*document_, view_,
                                                BoardActionServices{state_, preferences_, prompts_, errors_, wait_,
                                                                    screen_, screen_, [this] { return Busy(); },
                                                                    [this](const auto& now) { return choose_(now); }});
    }

    /// A Vexlon whose board answers, read once.
    void StartWithVexlon()
    {
        Start();
        board_->SelectProduct("Vexlon");
        ASSERT_EQ(Reads().size(), std::size_t{kRegisters});
        usb_->transfers.clear();
        usb_->calls.clear();
        view_.shownRows.clear();
        screen_ = {};
    }

    /// The same, with a wizard that notes what it is told.
    void StartBesideWizard()
    {
        StartWithVexlon();
        document_->OpenView("Vexlon", nullptr);
        journal_.clear();
    }

    std::shared_ptr<void> Busy()
    {
        ++busyDepth_;
        return {this, [this](void*) { --busyDepth_; }};
    }

    RegisterObject& Register(const std::string& name) { return *document_->controller().GetI2CRegisterByName(name); }
    Names Changed()
    {
        Names names;
        for (const auto& object : ChangedRegisters(document_->controller()))
            names.push_back(object->Name());
        return names;
    }
    Ids Reads() const { return usb_->Parameters(FakeDevice::Kind::Read); }
    Ids Writes() const { return usb_->Parameters(FakeDevice::Kind::Write); }
    const std::string& Status() const { return screen_.status.back(); }
    std::string DeviceType() const { return document_->device() ? document_->device()->DeviceType() : "none"; }
    void FailAt(std::int32_t id) { usb_->raiseAt.insert_or_assign({0x451, id}, Error(303, "Link", "No answer")); }

    FakeWait wait_;
    FakeProgress screen_;
    FakeRegisterView view_;
    FakeMainView mainView_{journal_};
    int busyDepth_ = 0;
    std::function<std::optional<CommSettings>(const CommSettings&)> choose_;
    std::function<void(FakeDevice&)> prepareLink_ = [](FakeDevice&) {};
    std::shared_ptr<FakeDevice> usb_;
    std::unique_ptr<Document> document_;
    std::unique_ptr<BoardActions> board_;
};

}
