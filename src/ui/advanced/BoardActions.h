#pragma once

#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "platform/IUserPrompts.h"
#include "platform/IWait.h"
#include "shell/Preferences.h"
#include "ui/advanced/BoardLink.h"
#include "ui/advanced/IRegisterView.h"
#include "ui/advanced/RegisterTransfer.h"
#include "ui/advanced/SerialTarget.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

class Document;
class RegisterObject;

/// What the actions work with beside document and view. `beginBusy` gives a token that keeps all user input away
/// while it lives.
struct BoardActionServices {
    ProgramState& state;
    Preferences& preferences;
    IUserPrompts& prompts;
    IErrorLog& errorLog;
    IWait& wait;
    IProgress& progress;
    IStatusLine& statusLine;
    std::function<std::shared_ptr<void>()> beginBusy;
    /// Lets the user change the settings of the serial port; none when he cancelled.
    std::function<std::optional<CommSettings>(const CommSettings&)> chooseSerialSettings;
};

/// What the user does to a board in the main window: choose product and link, connect, read, load, edit. The main
/// window owns it from Init to its end. It speaks to hardware in every action that its name says so of; all texts go to
/// the view's status line or through the prompts.
class BoardActions {
public:
    BoardActions(Document& document, IRegisterView& view, BoardActionServices services);
    ~BoardActions();

    /// A product of the product menu. Raises 101 for one that the init file does not have; errors of the init file
    /// reach the caller. The product in use already changes nothing, and beside a wizard it stays.
    void SelectProduct(const std::string& product);
    /// A link of the communication menu.
    void SelectLink(const std::string& link);
    /// Reads all registers from the board; connects first.
    void ReadConfiguration();
    /// Writes the changed registers to the board, or on request all.
    void LoadConfiguration();
    void ReadSingleRegister(const std::string& name);
    /// The user gave a register another value in the grid.
    void EditRegister(const std::string& name, std::int32_t value);
    /// "Real Time Update" was ticked; it stays so only when the board answers.
    void RealTimeTicked();
    /// Lets the user change the settings of the serial port until the enclosure answers with them or he has enough.
    void ChangeSerialSettings();
    /// Ends writing at once before a file is opened.
    void LeaveRealTime() { view_.RealTime(false); }
    /// Opens a data file that the user chose. False when it was not opened, which he has been told.
    bool OpenDataFile(const std::string& path);

    /// HID devices came or went. When the connected board is among those that went, the link is closed and the document
    /// told `text`; nothing happens otherwise.
    void DeviceRemoved(const std::string& text);

    /// Another view changed the board (kinds as IMainView has them).
    void ShowChange(std::int32_t kind, const std::string& name);
    /// Shows what the registers hold, as another view or a transfer has left them.
    void ShowValues();
    void SetAsSecondaryView(bool secondary) { secondaryView_ = secondary; }
    bool IsModified() const { return modified_; }
    /// Before the registers get other values: asks about edits that neither the board nor a file has. False when the
    /// user wants to keep them.
    bool MayDropEdits();
    /// Whether some registers could not be read in the last complete read.
    bool LastReadIncomplete() const { return lastReadIncomplete_; }
    void Saved(const std::string& path);
    const std::string& FileName() const { return fileName_; }
    /// The caption of the checked product, or empty.
    std::string SelectedProductName() const;

private:
    /// Marks what happens as done by the user in this window, until it dies; what should follow is carried out once, at
    /// the end of the outermost action.
    class UserAction {
    public:
        explicit UserAction(BoardActions& actions);
        ~UserAction() { actions_.inUserAction_ = outer_; }
        UserAction(const UserAction&) = delete;
        UserAction& operator=(const UserAction&) = delete;

    private:
        BoardActions& actions_;
        bool outer_;
    };
    using Registers = std::vector<std::shared_ptr<RegisterObject>>;
    using Direction = TransferResult (RegisterTransfer::*)(const Registers&);

    void ProductChanged(const std::string& product);
    void LinkChanged();
    void LinkConnected();
    void SwitchLink(const std::string& link);
    void FileOpened(const std::string& product, const std::string& path);
    bool IsOfOtherProduct(const std::string& path) const;
    bool IsOnlyDeviceOfItsMap(const std::string& product);
    void ChooseLinkForProduct(const std::string& product);
    void ShowProducts();
    void ShowLinks();
    void FillGrid();
    void FinishAction();
    void KeepEdits();

    /// On the serial network, makes sure that address and connector are known, and that the controller's pid is the
    /// address. False once the user cancelled a question of the action.
    bool Aim();
    /// What the link in use finds and the user picks; empty when there is nothing or he cancelled.
    std::string Browse();
    bool ConnectTo(const std::string& name);
    /// Connects to an enclosure that was found, and keeps a product of this link: the name of an enclosure tells
    /// nothing of the boards in it.
    bool ConnectToNode(const std::string& name);
    std::vector<std::string> LinksOf(const std::string& product);
    void ShowFileTitle();
    void TellNoAnswer();
    /// Lets the user pick a device and connects to it; tells how that ended.
    void Connecting();
    void ReadIfLinkAnswers();
    void ReadAll();
    TransferResult Run(const Registers& registers, Direction direction);
    void Write(const Registers& registers);
    void WriteOne(const std::shared_ptr<RegisterObject>& object);
    void Report(const char* verb, const TransferResult& result);
    void Tell(const std::string& text);
    void ShowRegister(const std::string& name);
    /// Fills the view: what it reports meanwhile is no edit.
    void Showing(const std::function<void()>& show);

    Document& document_;
    IConfigController& controller_;
    IRegisterView& view_;
    BoardActionServices services_;
    BoardLink link_;
    SerialTarget target_;

    bool ready_ = false;
    bool showing_ = false; ///< the view is being filled: what it reports is no edit
    bool secondaryView_ = false;
    bool modified_ = false;
    bool lastReadIncomplete_ = false;
    bool inUserAction_ = false;
    bool cancelled_ = false;  ///< the user cancelled a question of the action
    bool readWanted_ = false; ///< a complete read follows at the end of the action
    bool loadWanted_ = false; ///< a load follows at the end of the action
    std::string shownProduct_;
    std::string fileName_;

    std::vector<Subscription> subscriptions_;
};

}
