#include "cli/ProgramTest.h"

#include <cstdlib>

namespace tarvex {
namespace {

/// The program in a folder of its own, on a computer whose user speaks another language.
class EnvironmentRun : public ProgramTest {
protected:
    /// The program and all that lies beside it, in a folder whose name has a blank and letters beyond ASCII.
    std::filesystem::path Installed() const
    {
        const std::filesystem::path place = folder.File("Meß geräte");
        const auto built = std::filesystem::path(TARVEX_PROGRAM).parent_path();
        std::filesystem::create_directory(place);
        for (const char* name : {"tarvex", "Tarvex.xml", "Tarvex.hlp", "Images", "HelpTips"})
            std::filesystem::copy(built / name, place / name, std::filesystem::copy_options::recursive);
        return place / "tarvex";
    }

    /// What a user reads who adjusts a board, opens the help and saves: texts of the windows and the file.
    std::vector<std::string> Session(const std::filesystem::path& program, const std::string& locale)
    {
        ProgramStart start{program, {"-wVexlon", "-DEMO"}, folder.File(locale), {}, {}};
        std::filesystem::create_directories(start.folder / "Benutzer ä");
        start.environment = {
            {"LC_ALL", locale}, {"LOCPATH", folder.File("locales")}, {"HOME", start.folder / "Benutzer ä"}};
        ProgramDriver driver(start);
        driver.WaitText("Vexlon_Wizard", "Vexlon Wizard");
        driver.Item("ListView1/Phase Timing");
        driver.WaitText("Label1", "Phase Timing");
        driver.Key("Tab");
        driver.Key("Right");
        std::vector<std::string> seen;
        for (const char* name : {"StatusText", "Description", "StatusBar1/Resolution", "StatusBar1/Refresh"})
            seen.push_back(driver.Text(name));
        driver.Menu("AdvancedView");
        driver.WaitText("UI_RegisterItem_1/NameLabel", "Red Gain");
        seen.push_back(driver.Text("UI_RegisterItem_1/txtInput"));
        driver.Menu("AdvancedForm/SaveAs");
        driver.WaitShown("FileDialog");
        driver.Type("I");
        driver.Key("Return");
        driver.WaitText("AdvancedForm/StatusBar1/Message", "saved");
        driver.Terminate();
        EXPECT_EQ(driver.ExitCode(), 0);
        const auto saved = program.parent_path() / "I.xml"; // where a new user is asked to save first
        std::string content = folder.Read(saved.lexically_relative(folder.path));
        std::filesystem::remove(saved);
        const auto time = content.find("lastModified=\"");
        content.erase(time, content.find('>', time) - time);
        seen.push_back(content);
        EXPECT_FALSE(std::filesystem::exists(start.folder / "TarvexError.log"))
            << folder.Read(locale + "/TarvexError.log");
        return seen;
    }
};

TEST_F(EnvironmentRun, LooksTheSameInEveryLanguage)
{
    std::filesystem::create_directory(folder.File("locales"));
    for (const char* name : {"de_DE", "tr_TR"}) {
        const std::string command =
            std::string("localedef -i ") + name + " -f UTF-8 '" + folder.File("locales/") + name + ".UTF-8'";
        ASSERT_EQ(std::system(command.c_str()), 0) << "the package locales is missing";
    }
    const auto program = Installed();
    const auto plain = Session(program, "C");
    EXPECT_EQ(Session(program, "de_DE.UTF-8"), plain);
    EXPECT_EQ(Session(program, "tr_TR.UTF-8"), plain);
}

TEST_F(EnvironmentRun, TwoProgramsAtOnceKeepTheirBoardsAndFilesApart)
{
    ProgramDriver first(With({"-demo"}));
    ProgramDriver second(With({"-demo"}));
    const auto use = [](ProgramDriver& driver, const char* value) {
        driver.WaitShown("AdvancedForm");
        driver.Menu("ProductMenu_0");
        driver.WaitText("UI_RegisterItem_0/NameLabel", "Scratch");
        driver.Click("UI_RegisterItem_0/txtInput");
        driver.Key("Ctrl+A");
        driver.Type(value);
        driver.Click("BTN_Load");
        driver.WaitText("StatusBar1/Message", "written");
    };
    use(first, "12");
    use(second, "34");
    const auto copies = WorkingCopies();
    first.Click("BTN_Read");
    first.WaitText("StatusBar1/Message", "read");
    EXPECT_EQ(first.Text("UI_RegisterItem_0/txtInput"), "12");
    first.Terminate();
    EXPECT_EQ(first.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies() * 2, copies); // those of the other one are still there
    second.Click("BTN_Read");
    second.WaitText("StatusBar1/Message", "read");
    EXPECT_EQ(second.Text("UI_RegisterItem_0/txtInput"), "34");
    second.Terminate();
    EXPECT_EQ(second.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies(), 0);
}

}
}
