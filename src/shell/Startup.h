#pragma once

#include "platform/ISettingsStore.h"
#include "shell/DependencyCheck.h"
#include "shell/Document.h"
#include "shell/IMainView.h"

#include <memory>

namespace tarvex {

/// Runs the start-up steps on the main window, creates the document and hands control to it. Lives as long as the
/// program runs and owns the document.
class Startup {
public:
    Startup(DocumentServices services, Dependencies dependencies, ISettingsStore& settings, IMainView& mainView);
    ~Startup();

    /// All steps; may end the program. Runs inside the event loop, so that its boxes are ordinary.
    void Run();

private:
    void Initialise();
    void Load();

    DocumentServices services_;
    Dependencies dependencies_;
    ISettingsStore& settings_;
    IMainView& mainView_;
    std::unique_ptr<Document> document_;
};

}
