#pragma once

#include "shell/Document.h"
#include "support/FakeClock.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeWizardView.h"
#include "support/InitFileBuilder.h"
#include "support/ScriptedPrompts.h"

namespace tarvex {

/// What a document needs, in memory; links, wizards and the init file beside the program are up to the test.
struct DocumentFakes {
    DocumentFakes()
    {
        state_.programFolder = "/prog";
        state_.programFileName = "tarvex";
        state_.rootFolder = "/root";
        state_.instanceHandle = 42;
    }

    std::string& InitFile() { return files_.files["/prog/Tarvex.xml"]; }

    std::function<std::unique_ptr<IWizardView>()> WizardMaker(const std::string& label)
    {
        return [this, label] { return std::make_unique<FakeWizardView>(label, script_); };
    }

    FakeFileSystem files_;
    FakeErrorLog errors_;
    FakeClock clock_;
    PacketLog packetLog_{files_, clock_};
    ScriptedPrompts prompts_;
    Preferences preferences_;
    ProgramState state_;
    std::vector<std::string> journal_; ///< what all fakes of views write down
    FakeWizardScript script_{journal_};
    DocumentServices services_{state_, files_, errors_, packetLog_, prompts_, preferences_, {}, {}, {}, {}};
};

}
