#pragma once

#include "comm/DemoDevice.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "support/ExpectError.h"
#include "support/FakeClock.h"
#include "support/FakeDevice.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeMainView.h"
#include "support/FakeRegisterView.h"
#include "support/FakeWait.h"
#include "support/FakeWizardView.h"
#include "support/InitFileBuilder.h"
#include "support/ScriptedPrompts.h"
#include "ui/advanced/BoardActions.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarvex {

/// Status texts and progress of one window.
class ScreenNotes : public IStatusLine, public IProgress {
public:
    void DisplayStatusMessage(const std::string& text) override { status.push_back(text); }

    std::vector<std::string> status;
    std::vector<std::string> progress;

private:
    void IProgress_SetRange(std::int32_t steps, std::int32_t start) override
    {
        progress.push_back(std::to_string(start) + " of " + std::to_string(steps));
    }
    void IProgress_TickProgress(std::int32_t steps) override { progress.push_back("tick " + std::to_string(steps)); }
    void IProgress_Show(bool visible) override { progress.emplace_back(visible ? "show" : "hide"); }
};

/// A USB link whose board can be missed by a connection by ids and yet be found by its path.
class FakeUsbLink : public FakeDevice {
public:
    FakeUsbLink() { type = "USB-HID Device", connected = false, name = "VEXLON scaler"; }

    bool foundByIds = true;

private:
    std::int32_t IDevice_connect(std::int32_t, std::int32_t) override
    {
        calls.emplace_back("connect");
        connected = foundByIds;
        return connected ? 1 : 0;
    }
};

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
class BoardTest : public testing::Test {
protected:
    BoardTest()
    {
        state_.programFolder = "/prog";
        state_.programFileName = "tarvex";
        state_.rootFolder = "/root";
        const std::string both = Link("USB-HID Device") + Link("Demo");
        files_.files["/prog/Tarvex.xml"] =
            BoardFile("Vexlon", both)
                .Text(BoardFile("Vexlon-Fx_Channel1", Link("USB-HID Device")).Component() +
                      BoardFile("Kestra-Fx", Link("USB-HID Device") + InitFileBuilder::LinkXml("TCP_IP", "NVControl"))
                          .Component() +
                      BoardFile("Cendra", Link("SerialZorbus")).Component() +
                      BoardFile("Ossary", Link("SerialZorbus")).Component() +
                      BoardFile("Ossary-Plus", Link("SerialZorbus")).Component());
    }

    void Start(const std::string& commandLine = {})
    {
        DocumentServices services{state_, files_, errors_, packetLog_, prompts_, preferences_, {}, {}, {}, commandLine};
        services.links["Demo"] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        services.links["USB-HID Device"] = [this] {
            usb_ = std::make_shared<FakeUsbLink>();
            if (prepareLink_)
                prepareLink_(*usb_);
            return usb_;
        };
        services.wizards[WizardKind::Vexlon] = [this] { return std::make_unique<FakeWizardView>("wizard", script_); };
        document_ = std::make_unique<Document>(services);
        document_->Run(mainView_);
        board_ = std::make_unique<BoardActions>(*document_, view_,
                                                BoardActionServices{state_, preferences_, prompts_, errors_, wait_,
                                                                    screen_, screen_, [this] { return Busy(); }});
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
        usb_->transfers.clear();
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
    bool WasStatus(const std::string& text) const
    {
        return std::count(screen_.status.begin(), screen_.status.end(), text) > 0;
    }
    std::string DeviceType() const { return document_->device() ? document_->device()->DeviceType() : "none"; }
    void FailAt(std::int32_t id) { usb_->raiseAt.insert_or_assign({0x451, id}, Error(303, "Link", "No answer")); }

    FakeFileSystem files_;
    FakeErrorLog errors_;
    FakeClock clock_;
    PacketLog packetLog_{files_, clock_};
    ScriptedPrompts prompts_;
    Preferences preferences_;
    ProgramState state_;
    FakeWait wait_;
    ScreenNotes screen_;
    FakeRegisterView view_;
    std::vector<std::string> journal_;
    FakeMainView mainView_{journal_};
    FakeWizardScript script_{journal_};
    int busyDepth_ = 0;
    std::function<void(FakeUsbLink&)> prepareLink_;
    std::shared_ptr<FakeUsbLink> usb_;
    std::unique_ptr<Document> document_;
    std::unique_ptr<BoardActions> board_;
};

}
