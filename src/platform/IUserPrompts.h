#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

enum class Buttons { Ok, YesNo, RetryCancelHelp };
enum class Icon { None, Question, Exclamation, Information };
enum class Answer { Ok, Yes, No, Retry, Cancel };

/// One message box. Title "Tarvex" unless another is given. A help topic is opened by the box's Help button, after
/// which the box comes back.
struct MessageBoxRequest {
    std::string text;
    std::string title = "Tarvex";
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    std::optional<std::int32_t> helpTopic = std::nullopt;
    bool returnAnswersNo = false; ///< of a Yes/No box whose Yes cannot be taken back
};

/// One file dialog. `filter` is in the form "XML (*.xml)|*.xml|All (*.*)|*.*"; the extension has no dot.
struct FileDialogRequest {
    std::string title;
    std::string folder;
    std::string fileName;
    std::string filter;
    std::string defaultExtension;
};

/// The window that says that the network is searched. It closes when this dies, which the searcher keeps meanwhile.
class IQueryWindow {
public:
    virtual ~IQueryWindow() = default;

    /// True once the user gave the search up. The window stays until the searcher has heard of it.
    virtual bool Cancelled() const = 0;
};

/// Everything that asks the user or shows him something outside the windows of his work. No other code opens a box.
class IUserPrompts {
public:
    virtual ~IUserPrompts() = default;

    /// Closing the box by other means answers No, Cancel, or Ok where it is the only button.
    virtual Answer ShowMessage(const MessageBoxRequest& request) = 0;
    /// The text entered, or none when cancelled.
    virtual std::optional<std::string> AskText(const std::string& question, const std::string& title,
                                               const std::string& proposal) = 0;
    /// The chosen path, or none when cancelled.
    virtual std::optional<std::string> AskOpenFile(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> AskSaveFile(const FileDialogRequest& request) = 0;
    /// Lets the user pick one of the entries (path or browse string of a device each); the entry's position,
    /// or none. Without entries it closes at once.
    virtual std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& entries) = 0;
    /// Shows the query-progress window over the window that is active; it lives while the caller waits through `IWait`,
    /// and can be cancelled also then.
    virtual std::unique_ptr<IQueryWindow> ShowQueryProgress() = 0;
    /// Opens the contents page of the help file, or the page of a topic.
    virtual void ShowHelp(std::optional<std::int32_t> topic) = 0;
    /// Opens a text file with the system's editor.
    virtual void OpenInEditor(const std::string& path) = 0;
    virtual void Beep() = 0;
    /// Shows the hourglass pointer until it is called with false as often as with true.
    virtual void SetBusyPointer(bool busy) = 0;

    /// An OK box.
    void Tell(std::string text, std::string title = "Tarvex", Icon icon = Icon::None)
    {
        ShowMessage({std::move(text), std::move(title), Buttons::Ok, icon});
    }
    /// A Yes/No box; true for Yes.
    bool Ask(std::string text, std::string title = "Tarvex")
    {
        return ShowMessage({std::move(text), std::move(title), Buttons::YesNo, Icon::Question}) == Answer::Yes;
    }
    /// The same before something is lost: Return answers No.
    bool AskBeforeLoss(std::string text, std::string title = "Tarvex")
    {
        MessageBoxRequest box{std::move(text), std::move(title), Buttons::YesNo, Icon::Question};
        box.returnAnswersNo = true;
        return ShowMessage(box) == Answer::Yes;
    }
};

}
