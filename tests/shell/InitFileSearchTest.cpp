#include "shell/InitFileSearch.h"

#include "support/ExitCode.h"
#include "support/FakeFileSystem.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

constexpr const char* kQuestion =
    "Unable to find the initialization file Tarvex.xml in /prog. Do you want to search for it?";

}

TEST(InitFileSearch, AsksAgainUntilAnInitFileIsChosenOrTheUserGivesUp)
{
    ProgramState state;
    state.programFolder = "/prog";
    FakeFileSystem files;
    files.files = {{"/other/My tarvex.xml", ""}, {"/other/Tarvex.hlp", ""}, {"/Tarvex.xml folder/notes.txt", ""}};
    ScriptedPrompts prompts;
    const auto find = [&] { return FindInitFile(state, files, prompts); };
    const auto expectSearch = [&](std::optional<std::string> chosen) {
        prompts.ExpectMessage(kQuestion, Answer::Yes);
        prompts.ExpectOpenFile(std::move(chosen));
    };
    expectSearch("/Tarvex.xml folder/notes.txt");
    prompts.ExpectMessage("Please locate Tarvex.xml.");
    expectSearch("/other/Tarvex.hlp");
    prompts.ExpectMessage(
        "Please locate Tarvex.xml. You must locate the init file before you can view the usage notes. If you want to "
        "see the Windows Help files, use Windows Explorer to launch Tarvex.hlp directly.");
    expectSearch("/nowhere/Tarvex.xml");
    expectSearch("/other/My tarvex.xml");
    EXPECT_EQ(find(), "/other/My tarvex.xml");

    prompts.ExpectMessage(kQuestion, Answer::No);
    EXPECT_EQ(ExitCodeOf(find), 2);
    EXPECT_EQ(prompts.messages.back().title, "Tarvex Init File Not Found");
    expectSearch(std::nullopt);
    prompts.ExpectMessage("User canceled search for initialization file.  Closing Tarvex.");
    EXPECT_EQ(ExitCodeOf(find), 2);
    files.files["/prog/tarvex.XML"] = "";
    EXPECT_EQ(find(), "/prog/tarvex.XML");
}

}
