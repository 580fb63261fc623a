#pragma once

#include "platform/IUserPrompts.h"

#include <deque>
#include <gtest/gtest.h>
#include <utility>

namespace tarvex {

/// Answers the program's questions in the order in which a test expects them. A question that is not the next one
/// expected fails the test and gets the answer of a closed box; so does a question still unasked at the end.
/// What asks nothing (help, editor, beep, pointer) is only noted.
class ScriptedPrompts : public IUserPrompts {
public:
    ~ScriptedPrompts() override
    {
        for (const Expectation& expectation : expectations_)
            ADD_FAILURE() << "Never asked: " << Describe(expectation);
    }

    /// A message box with exactly this text.
    void ExpectMessage(std::string text, Answer answer = Answer::Ok) { Expect(Kind::Message, text, answer, {}, {}); }
    /// An input box with exactly this question; no answer = cancelled.
    void ExpectText(std::string question, std::optional<std::string> answer)
    {
        Expect(Kind::Text, question, {}, std::move(answer), {});
    }
    /// A file dialog; no answer = cancelled.
    void ExpectOpenFile(std::optional<std::string> answer) { Expect(Kind::OpenFile, {}, {}, std::move(answer), {}); }
    void ExpectSaveFile(std::optional<std::string> answer) { Expect(Kind::SaveFile, {}, {}, std::move(answer), {}); }
    void ExpectBrowse(std::optional<std::size_t> answer) { Expect(Kind::Browse, {}, {}, {}, answer); }

    bool AllAsked() const { return expectations_.empty(); }

    Answer ShowMessage(const MessageBoxRequest& request) override
    {
        messages.push_back(request);
        const auto expectation = Take(Kind::Message, request.text);
        return expectation ? expectation->answer : ClosedAnswer(request.buttons);
    }

    std::optional<std::string> AskText(const std::string& question, const std::string& title,
                                       const std::string& proposal) override
    {
        textQuestions.push_back({question, title, proposal});
        const auto expectation = Take(Kind::Text, question);
        return expectation ? expectation->text : std::nullopt;
    }

    std::optional<std::string> AskOpenFile(const FileDialogRequest& request) override
    {
        return AskFile(Kind::OpenFile, request);
    }

    std::optional<std::string> AskSaveFile(const FileDialogRequest& request) override
    {
        return AskFile(Kind::SaveFile, request);
    }

    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& entries) override
    {
        browsed.push_back(entries);
        const auto expectation = Take(Kind::Browse, {});
        return expectation ? expectation->position : std::nullopt;
    }

    void ShowHelp(std::optional<std::int32_t> topic) override { helpTopics.push_back(topic); }
    void OpenInEditor(const std::string& path) override { edited.push_back(path); }
    void Beep() override { ++beeps; }
    void SetBusyPointer(bool busy) override { busyDepth += busy ? 1 : -1; }

    struct TextQuestion {
        std::string question;
        std::string title;
        std::string proposal;
    };

    // What was asked and shown, in order.
    std::vector<MessageBoxRequest> messages;
    std::vector<TextQuestion> textQuestions;
    std::vector<FileDialogRequest> fileDialogs;
    std::vector<std::vector<std::string>> browsed;
    std::vector<std::optional<std::int32_t>> helpTopics;
    std::vector<std::string> edited;
    int beeps = 0;
    int busyDepth = 0;

private:
    enum class Kind { Message, Text, OpenFile, SaveFile, Browse };

    struct Expectation {
        Kind kind;
        std::string question;
        Answer answer;
        std::optional<std::string> text;
        std::optional<std::size_t> position;
    };

    static std::string Describe(Kind kind, const std::string& question)
    {
        static constexpr const char* kNames[] = {"message", "input box", "open dialog", "save dialog", "browse dialog"};
        return std::string(kNames[static_cast<int>(kind)]) + " \"" + question + "\"";
    }

    static std::string Describe(const Expectation& expectation)
    {
        return Describe(expectation.kind, expectation.question);
    }

    static Answer ClosedAnswer(Buttons buttons)
    {
        if (buttons == Buttons::Ok)
            return Answer::Ok;
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }

    void Expect(Kind kind, std::string question, Answer answer, std::optional<std::string> text,
                std::optional<std::size_t> position)
    {
        expectations_.push_back({kind, std::move(question), answer, std::move(text), position});
    }

    /// The next expectation when it is for this question; else none, and the test has failed.
    std::optional<Expectation> Take(Kind kind, const std::string& question)
    {
        if (expectations_.empty() || expectations_.front().kind != kind || expectations_.front().question != question) {
            ADD_FAILURE() << "Unexpected " << Describe(kind, question) << ", expected "
                          << (expectations_.empty() ? "nothing" : Describe(expectations_.front()));
            return std::nullopt;
        }
        Expectation expectation = std::move(expectations_.front());
        expectations_.pop_front();
        return expectation;
    }

    std::optional<std::string> AskFile(Kind kind, const FileDialogRequest& request)
    {
        fileDialogs.push_back(request);
        const auto expectation = Take(kind, {});
        return expectation ? expectation->text : std::nullopt;
    }

    std::deque<Expectation> expectations_;
};

}
