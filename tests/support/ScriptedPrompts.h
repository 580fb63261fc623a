#pragma once

#include "platform/IUserPrompts.h"

#include <deque>
#include <gtest/gtest.h>
#include <utility>

namespace tarvex {

/// Answers the program's questions in the order in which a test expects them. A question that is not the next one
/// expected fails the test and gets the answer of a closed box; so does a question still unasked at the end.
/// What asks nothing (help, editor, beep, pointer, query-progress window) fails nothing.
class ScriptedPrompts : public IUserPrompts {
public:
    ~ScriptedPrompts() override
    {
        for (const Expectation& expectation : expectations_)
            ADD_FAILURE() << "Never asked: " << expectation.question;
    }

    /// A message box with exactly this text.
    void ExpectMessage(const std::string& text, Answer answer = Answer::Ok)
    {
        expectations_.push_back({kMessage + text, answer, {}});
    }
    /// A file dialog; no answer = cancelled.
    void ExpectOpenFile(std::optional<std::string> answer)
    {
        expectations_.push_back({kOpenFile, {}, std::move(answer)});
    }
    void ExpectSaveFile(std::optional<std::string> answer)
    {
        expectations_.push_back({kSaveFile, {}, std::move(answer)});
    }
    /// The dialog for choosing a device, which is cancelled.
    void ExpectBrowse() { expectations_.push_back({kBrowse, {}, {}}); }

    Answer ShowMessage(const MessageBoxRequest& request) override
    {
        messages.push_back(request);
        const auto expectation = Take(kMessage + request.text);
        return expectation ? expectation->answer : ClosedAnswer(request.buttons);
    }

    std::optional<std::string> AskOpenFile(const FileDialogRequest& request) override
    {
        return AskFile(kOpenFile, request);
    }

    std::optional<std::string> AskSaveFile(const FileDialogRequest& request) override
    {
        return AskFile(kSaveFile, request);
    }

    std::optional<std::string> AskText(const std::string& question, const std::string&, const std::string&) override
    {
        Take("input box " + question);
        return std::nullopt;
    }

    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& entries) override
    {
        Take(kBrowse);
        EXPECT_TRUE(entries.empty());
        return std::nullopt;
    }

    std::unique_ptr<IQueryWindow> ShowQueryProgress() override
    {
        ++queriesShown;
        return std::make_unique<Query>(cancelsQueries);
    }

    void ShowHelp(std::optional<std::int32_t> topic) override { helpTopics.push_back(topic); }
    void OpenInEditor(const std::string&) override {}
    void Beep() override {}
    void SetBusyPointer(bool busy) override { busyPointers += busy ? 1 : -1; }

    // What was asked and shown, in order.
    std::vector<MessageBoxRequest> messages;
    std::vector<FileDialogRequest> fileDialogs;
    std::vector<std::optional<std::int32_t>> helpTopics;
    int busyPointers = 0;
    int queriesShown = 0;
    bool cancelsQueries = false; ///< whether the user gives a search up

private:
    static inline const std::string kMessage = "message box ";
    static inline const std::string kOpenFile = "open dialog";
    static inline const std::string kSaveFile = "save dialog";
    static inline const std::string kBrowse = "browse dialog";

    struct Query : IQueryWindow {
        explicit Query(const bool& cancels) : cancelled(cancels) {}
        bool Cancelled() const override { return cancelled; }
        const bool& cancelled;
    };

    struct Expectation {
        std::string question; ///< the kind of box, and the text of a message
        Answer answer;
        std::optional<std::string> text;
    };

    static Answer ClosedAnswer(Buttons buttons)
    {
        if (buttons == Buttons::Ok)
            return Answer::Ok;
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }

    /// The next expectation when it is for this question; else none, and the test has failed.
    std::optional<Expectation> Take(const std::string& question)
    {
        if (expectations_.empty() || expectations_.front().question != question) {
            ADD_FAILURE() << "Unexpected " << question << ", expected "
                          << (expectations_.empty() ? "nothing" : expectations_.front().question);
            return std::nullopt;
        }
        Expectation expectation = std::move(expectations_.front());
        expectations_.pop_front();
        return expectation;
    }

    std::optional<std::string> AskFile(const std::string& kind, const FileDialogRequest& request)
    {
        fileDialogs.push_back(request);
        const auto expectation = Take(kind);
        return expectation ? expectation->text : std::nullopt;
    }

    std::deque<Expectation> expectations_;
};

}
