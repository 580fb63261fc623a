#include "shell/InitFileSearch.h"

#include "support/ExitCode.h"
#include "support/FakeFileSystem.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

constexpr const char* kQuestion =
    "Unable to find the initialization file Tarvex.xml in /prog. Do you want to search for it?";

class InitFileSearch : public testing::Test {
protected:
    InitFileSearch() { state_.programFolder = "/prog"; }
    std::string Find() { return FindInitFile(state_, files_, prompts_); }
    void ExpectSearch(std::optional<std::string> chosen)
    {
        prompts_.ExpectMessage(kQuestion, Answer::Yes);
        prompts_.ExpectOpenFile(std::move(chosen));
    }

    ProgramState state_;
    FakeFileSystem files_;
    ScriptedPrompts prompts_;
};

}

TEST_F(InitFileSearch, FindsTheFileBesideTheProgramInAnyLetterCase)
{
    files_.files["/prog/tarvex.XML"] = "";
    EXPECT_EQ(Find(), "/prog/tarvex.XML");
}

TEST_F(InitFileSearch, EndsWhenTheUserDeclinesOrCancels)
{
    prompts_.ExpectMessage(kQuestion, Answer::No);
    EXPECT_EQ(ExitCodeOf([&] { Find(); }), 2);
    EXPECT_EQ(prompts_.messages.back().title, "Tarvex Init File Not Found");
    ExpectSearch(std::nullopt);
    prompts_.ExpectMessage("User canceled search for initialization file.  Closing Tarvex.");
    EXPECT_EQ(ExitCodeOf([&] { Find(); }), 2);
}

TEST_F(InitFileSearch, AsksAgainUntilAnInitFileIsChosen)
{
    files_.files["/other/My tarvex.xml"] = "";
    files_.files["/other/Tarvex.hlp"] = "";
    files_.files["/Tarvex.xml folder/notes.txt"] = "";
    ExpectSearch("/Tarvex.xml folder/notes.txt");
    prompts_.ExpectMessage("Please locate Tarvex.xml.");
    ExpectSearch("/other/Tarvex.hlp");
    prompts_.ExpectMessage(
        "Please locate Tarvex.xml. You must locate the init file before you can view the usage notes. If you want to "
        "see the Windows Help files, use Windows Explorer to launch Tarvex.hlp directly.");
    ExpectSearch("/nowhere/Tarvex.xml");
    ExpectSearch("/other/My tarvex.xml");
    EXPECT_EQ(Find(), "/other/My tarvex.xml");
}

}
