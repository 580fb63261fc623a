#include "cli/ProgramTest.h"

#include <fstream>
#include <stdexcept>

namespace tarvex {
namespace {

/// What a user meets before the first window, and how the program ends then.
class StartRun : public ProgramTest {
protected:
    static void Answer(ProgramDriver& driver, const std::string& text, const std::string& key)
    {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    }
    /// Names a file in the dialog that is open.
    static void Choose(ProgramDriver& driver, const std::string& path)
    {
        driver.WaitShown("FileDialog");
        driver.Type(path);
        driver.WaitText("fileNameEdit", path); // the dialog lists the folder meanwhile
        driver.Key("Return");
    }
    /// The program on a network of enclosures of its own.
    ProgramStart OnNetwork(std::vector<std::string> switches, const std::string& network)
    {
        ProgramStart start = With(std::move(switches));
        folder.Write("network.xml", network);
        start.environment["TARVEX_NETWORK"] = folder.File("network.xml");
        return start;
    }
    void ExpectLog(const std::string& text) const
    {
        EXPECT_NE(folder.Read("TarvexError.log").find(text), std::string::npos) << folder.Read("TarvexError.log");
    }
};

constexpr const char* kQuestion = "Do you want to search for it?";

TEST_F(StartRun, WithoutAnInitFileItAsksForOne)
{
    ProgramStart start = Copied({"-demo"});
    {
        ProgramDriver driver(start);
        Answer(driver, kQuestion, "Alt+N");
        EXPECT_EQ(driver.ExitCode(), 2);
    }
    {
        ProgramDriver driver(start);
        Answer(driver, kQuestion, "Alt+Y");
        driver.WaitShown("FileDialog");
        driver.Key("Escape");
        Answer(driver, "User canceled search for initialization file.  Closing Tarvex.", "Return");
        EXPECT_EQ(driver.ExitCode(), 2);
    }
    std::filesystem::copy_file(std::filesystem::path(TARVEX_PROGRAM).parent_path() / "Tarvex.xml",
                               folder.File("my-Tarvex.xml"));
    folder.Write("Tarvex.hlp", "");
    ProgramDriver driver(start);
    Answer(driver, kQuestion, "Alt+Y");
    Choose(driver, folder.File("Tarvex.hlp"));
    Answer(driver, "You must locate the init file before you can view the usage notes.", "Return");
    Answer(driver, kQuestion, "Alt+Y");
    Choose(driver, folder.File("my-Tarvex.xml"));
    driver.WaitShown("AdvancedForm");
    driver.Menu("ProductMenu_0");
    driver.WaitText("UI_RegisterItem_0/NameLabel", "Scratch");
    driver.Terminate();
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(StartRun, ALibraryThatIsMissingOrTooOldEndsItWith8)
{
    for (const auto& [network, text] :
         {std::pair("<ZorbusNetwork installed='false'/>",
                    "Stopping execution. Unable to load Norvane.System ActiveX component.  Last error is: "),
          {"<ZorbusNetwork version='1.0.0'/>", "Dependency check:  Found Norvane 1.0.0, Require 1.1.11"}}) {
        ProgramDriver driver(OnNetwork({}, network));
        Answer(driver, text, "Return");
        EXPECT_EQ(driver.ExitCode(), 8) << network;
    }
}

TEST_F(StartRun, AMalformedNetworkIsLoggedWithItsPlaceAndHasNoPorts)
{
    ProgramDriver driver(OnNetwork({}, "<ZorbusNetwork>\n  <Port number='x'/>\n</ZorbusNetwork>"));
    driver.WaitShown("AdvancedForm");
    ExpectLog("Element Port: number \"x\" is no number in its range (line 2, column 3)");
    driver.Terminate();
    EXPECT_EQ(driver.ExitCode(), 0);
}

TEST_F(StartRun, AnUnknownProductHasNoWindowAndEndsItWith7)
{
    ProgramDriver driver(With({"-wNonsense", "-demo"}));
    EXPECT_EQ(driver.ExitCode(), 7);
    ExpectLog("There is no wizard for the product NONSENSE");
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(StartRun, AskedToEndBySystemItCancelsTheQuestionThatIsOpen)
{
    ProgramDriver driver(With({"-wCendra"}));
    driver.WaitShown("DeviceBrowseDialog"); // inside the search, which waits for the answer
    driver.Terminate();
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies(), 0);
}

}
}
