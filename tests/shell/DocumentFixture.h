#pragma once

#include "base/Numbers.h"
#include "support/DocumentFakes.h"
#include "support/ExitCode.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"

namespace tarvex {

/// A link that writes down when it is made, connected, disconnected and gone.
class FakeLink : public FakeDevice {
public:
    FakeLink(const std::string& linkType, std::vector<std::string>& journal) : journal_(journal)
    {
        type = linkType;
        Note("made");
    }
    ~FakeLink() override { Note("gone"); }

    bool failsToClose = false;

private:
    std::int32_t IDevice_connect(std::int32_t pid, std::int32_t vid) override
    {
        Note("connect " + ToHex(pid) + " " + ToHex(vid));
        return 1;
    }
    std::int32_t IDevice_Disconnect() override
    {
        Note("Disconnect");
        if (failsToClose)
            Raise(1, "FakeLink::Disconnect", "stuck");
        return 0;
    }

    void Note(const std::string& line) { journal_.push_back(type + ": " + line); }

    std::vector<std::string>& journal_;
};

/// An init file with these boards.
inline std::string InitFileText(const std::vector<std::string>& names, const std::string& version = "2.5.0",
                                const std::string& vendor = "12C5")
{
    InitFileBuilder file;
    std::string others;
    for (const std::string& name : names) {
        file.device = name;
        others += name == names.back() ? "" : file.Component();
    }
    file.version = version;
    file.vid = vendor;
    return file.Text(others);
}

/// A document among fakes, which all write into one journal.
class DocumentTest : public testing::Test, protected DocumentFakes {
protected:
    DocumentTest()
    {
        InitFile() = InitFileText({"Vexlon", "Vexlon-Fx_Channel1", "Kestra-Fx", "Cendra", "Ossary", "Ossary-Plus"});
        services_.links = {{"Demo", LinkMaker("Demo device")},
                           {"USB-HID Device", LinkMaker("USB-HID Device")},
                           {"SerialZorbus", LinkMaker("SerialZorbus")}};
        services_.wizards = {{WizardKind::Vexlon, WizardMaker("Vexlon_Wizard")},
                             {WizardKind::Cendra, WizardMaker("Cendra_Wizard")},
                             {WizardKind::AnalogTx, WizardMaker("AnalogTx_Wizard")}};
    }

    std::function<std::shared_ptr<IDevice>()> LinkMaker(const std::string& type)
    {
        return [this, type] { return std::make_shared<FakeLink>(type, journal_); };
    }

    /// Makes a document and runs it; the code with which it ended the program, or none.
    std::optional<int> Run(const std::string& commandLine)
    {
        services_.commandLine = commandLine;
        document_ = std::make_unique<Document>(services_);
        return ExitCodeOf([&] { document_->Run(mainView_); });
    }

    /// What was written down since the last time.
    std::vector<std::string> TakeJournal() { return std::exchange(journal_, {}); }

    FakeMainView mainView_{journal_};
    std::unique_ptr<Document> document_;
};

using Lines = std::vector<std::string>;

}
