#pragma once

#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "comm/api/IDevice.h"
#include "config/IConfigController.h"
#include "platform/IClock.h"
#include "platform/IFileSystem.h"
#include "platform/IUserPrompts.h"
#include "platform/IWait.h"
#include "ui/wizards/frame/IWizardFrameView.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tarvex {

class Document;

/// What every wizard works with beside document and window; main owns all of it. `beginBusy` gives a token that keeps
/// all user input away and shows the hourglass while it lives.
struct WizardServices {
    ProgramState& state;
    IFileSystem& files;
    IClock& clock;
    IUserPrompts& prompts;
    IErrorLog& errorLog;
    IWait& wait;
    std::function<std::shared_ptr<void>()> beginBusy;
};

/// The frame as a product sees it: the current element, the link, the board, and what all wizards do alike. The frame
/// implements it and outlives the product's use of it. Needs the wizard's Init, but for Services and View.
class IWizardHost {
public:
    virtual ~IWizardHost() = default;

    // Where things are found.
    virtual const WizardServices& Services() const = 0;
    virtual IWizardFrameView& View() = 0;
    virtual Document& TheDocument() = 0;
    virtual IConfigController& Controller() = 0;
    /// The link in use, asked of the document each time; raises 303 when there is none.
    virtual IDevice& Device() = 0;
    /// Full path of a file in the program's picture folder.
    virtual std::string PicturePath(const std::string& fileName) const = 0;

    // The link.
    /// The connection check: asks the board for its first register and shows the connection's picture. A board that
    /// does not answer is told in a box, the window goes into the failure state, and the answer is false. To be called
    /// after Init and after each change of target.
    virtual bool CheckConnection() = 0;
    /// The check before an operation: a lost link is connected again with the ids of the controller, then checked.
    /// False when it stays down; the window is in the failure state then, and the operation must do nothing else.
    virtual bool EnsureLink() = 0;
    /// After a failure that the user has been told of: asks the board whether it still answers. When it does not, the
    /// link is closed, so that the next operation connects anew, and the window is put into the failure state.
    virtual bool StillAnswers() = 0;
    /// Puts the window into the failure state.
    virtual void EnterFailureState() = 0;

    // The board.
    /// Carries out register writes as one operation: link check, hourglass, the writes, and when one of them failed
    /// error 201 "Failed to write " + `what`, raised with `source`. Otherwise the settings count as unsaved. False
    /// when the link is down and nothing was done.
    virtual bool Write(const std::string& source, const std::string& what, const std::function<void()>& writes) = 0;
    /// The same for reads, with error 0x80040001 "Failed to read " + `what`. Registers that were edited and not loaded
    /// hold what was read only until the end of `reads`, and the edit again afterwards.
    virtual bool Read(const std::string& source, const std::string& what, const std::function<void()>& reads) = 0;
    /// Transfers that failed since the wizard was made, as the link's events tell it. A loop that goes on after a
    /// failure compares it with what it was before.
    virtual int Failures() const = 0;
    /// To be asked before the registers get values of another target: what was edited in them and neither loaded nor
    /// saved is given up only when the user agrees. False when he does not; everything stays as it is then.
    virtual bool MayDropEdits() = 0;
    /// Gives the controller this window as its place of progress and shows the bar while the result lives.
    virtual std::shared_ptr<void> BeginProgress() = 0;

    // The current element.
    /// Name of the element last selected; empty before the first selection.
    virtual const std::string& CurrentElement() const = 0;
    /// Whether it is still the selected item of the list.
    virtual bool IsCurrentSelected() const = 0;
    /// Selects the current element again: a fresh read, without writing anything back. Before the first selection it
    /// selects the first element.
    virtual void SelectAgain() = 0;
    /// Makes `code` (below -1) the undo value and enables Undo: the product's Undo gets it back.
    virtual void OfferUndo(std::int32_t code) = 0;

    // What others are told.
    /// Text in the "Message" panel.
    virtual void Say(const std::string& text) = 0;
    /// Tells the other views of a change of the board: one of the kinds of IMainView.h and a name.
    virtual void TellOtherViews(std::int32_t kind, const std::string& name) = 0;
    /// No data file is in use any more; the caption becomes "Tarvex" when one was.
    virtual void DropDataFile() = 0;
};

}
