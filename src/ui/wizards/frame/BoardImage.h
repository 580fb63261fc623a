#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class IWizardHost;
class RegisterObject;

/// Whether the registers hold what the board has, and the reading that brings it about. Menu commands work out new
/// values from the registers, the main window shows them, and a file is saved from them. The product owns one and says
/// where its registers are read; what was edited and not written yet stays in them, marked.
class BoardImage {
public:
    /// Gives the ASPI argument for a read of this register; none when the target does not have it.
    using AspiOf = std::function<std::optional<std::int16_t>(const RegisterObject&)>;

    /// Told after each reading which registers could not be read, while the others hold nothing that was edited.
    using WhenRead = std::function<void(const std::vector<std::string>& failed)>;

    explicit BoardImage(AspiOf aspiOf, WhenRead whenRead = nullptr)
        : aspiOf_(std::move(aspiOf)), whenRead_(std::move(whenRead))
    {}

    /// Hands over the frame, before everything else.
    void Attach(IWizardHost& host) { host_ = &host; }

    /// The board may hold other values: it was lost, another one is the target, its flash was restored, a write failed.
    void Forget() { isRead_ = false; }
    /// Gives up what was changed in the registers and not loaded into the board, by a file or by the user.
    void DropEdits();
    /// Reads all registers, unless that was done since Forget; true when it was done now. One that cannot be read does
    /// not keep the others from being read; a board that fails too often is not asked any further, and Escape ends it.
    bool CatchUp();
    /// Reads all registers up to the first one that cannot be read, and gives its name. Escape ends it, too.
    std::optional<std::string> ReadAll();
    /// Whether Escape ended the last reading.
    bool WasStopped() const { return stopped_; }
    /// Reads what has not been read yet; the names of the registers that could not be read even now.
    std::vector<std::string> FindUnread();

private:
    using Registers = std::vector<std::string>;
    /// Gives those that were not read.
    Registers Read(const Registers& names, std::size_t failuresTolerated);
    bool ReadOne(const std::string& name);
    Registers AllNames() const;

    IWizardHost* host_ = nullptr;
    AspiOf aspiOf_;
    WhenRead whenRead_;
    bool isRead_ = false;
    bool stopped_ = false;
    Registers unread_; ///< once it is read: those that could not be
};

}
