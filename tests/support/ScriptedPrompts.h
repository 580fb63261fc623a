#pragma once

#include "platform/IUserPrompts.h"

#include <deque>
#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace tarvex {

/// Answers the program's questions in the order in which a test expects them. A question that is not the next one
/// expected fails the test and is cancelled; so does a question still unasked at the end. What asks nothing (help,
/// editor, beep, pointer) goes unheard.
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
        expectations_.push_back({"message box " + text, answer, {}});
    }
    /// A file dialog; no answer = cancelled.
    void ExpectOpenFile(std::optional<std::string> answer)
    {
        expectations_.push_back({"open dialog", {}, std::move(answer)});
    }
    void ExpectSaveFile(std::optional<std::string> answer)
    {
        expectations_.push_back({"save dialog", {}, std::move(answer)});
    }

    /// An input box, told by its question, title and proposal one after another; no answer = cancelled.
    void ExpectText(const std::string& texts, std::optional<std::string> answer)
    {
        expectations_.push_back({"input box " + texts, {}, std::move(answer)});
    }

    /// The list of devices; no answer = cancelled.
    void ExpectBrowse(std::optional<std::size_t> answer) { expectations_.push_back({"browse dialog", {}, {}, answer}); }

    Answer ShowMessage(const MessageBoxRequest& request) override
    {
        messages.push_back(request);
        if (tolerated.contains(request.text))
            return Answer::Ok;
        return Take("message box " + request.text).answer;
    }

    std::optional<std::string> AskOpenFile(const FileDialogRequest&) override { return Take("open dialog").text; }

    std::optional<std::string> AskSaveFile(const FileDialogRequest&) override { return Take("save dialog").text; }

    std::optional<std::string> AskText(const std::string& question, const std::string& title,
                                       const std::string& proposal) override
    {
        return Take("input box " + question + title + proposal).text;
    }

    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>&) override
    {
        return Take("browse dialog").position;
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
    std::set<std::string> tolerated; ///< messages that may come at any time
    std::vector<std::optional<std::int32_t>> helpTopics;
    int busyPointers = 0;
    int queriesShown = 0;
    bool cancelsQueries = false; ///< whether the user gives a search up

private:
    struct Query : IQueryWindow {
        explicit Query(const bool& cancels) : cancelled(cancels) {}
        bool Cancelled() const override { return cancelled; }
        const bool& cancelled;
    };

    struct Expectation {
        std::string question; ///< the kind of box, and the text of a message
        Answer answer = Answer::Cancel;
        std::optional<std::string> text;
        std::optional<std::size_t> position = std::nullopt;
    };

    Expectation Take(const std::string& question)
    {
        if (expectations_.empty() || expectations_.front().question != question) {
            ADD_FAILURE() << "Unexpected " << question << ", expected "
                          << (expectations_.empty() ? "nothing" : expectations_.front().question);
            return {};
        }
        Expectation expectation = std::move(expectations_.front());
        expectations_.pop_front();
        return expectation;
    }

    std::deque<Expectation> expectations_;
};

}
