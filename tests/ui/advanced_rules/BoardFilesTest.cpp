#include "support/FakeSettingsStore.h"
#include "ui/advanced/FileActions.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {

namespace {

class BoardFiles : public BoardTest {
protected:
    BoardFiles()
    {
        WriteDataFile("/data/vexlon.xml", "Vexlon");
        WriteDataFile("/data/fx.xml", "Vexlon-Fx_Channel1");
    }

    void WriteDataFile(const std::string& path, const std::string& device)
    {
        InitFileBuilder file = BoardFile(device, Link("USB-HID Device"), Xml("Value", "3C"));
        file.root = "TarvexData";
        files_.files[path] = file.Text();
    }

    FileActions Files()
    {
        return {*document_, *board_, prompts_, screen_, recent_, [this](const std::string& path) { Save(path); }};
    }

    void Save(const std::string& path)
    {
        if (diskIsFull_)
            Raise(61, "Save", "Disk full");
        saved_.push_back(path);
    }

    FakeSettingsStore settings_;
    RecentFiles recent_{settings_, files_};
    bool diskIsFull_ = false;
    Names saved_;
};

}

TEST_F(BoardFiles, AFileOfTheCurrentProductWaitsForALoad)
{
    StartWithVexlon();
    EXPECT_TRUE(board_->OpenDataFile("/data/vexlon.xml"));
    EXPECT_EQ(view_.title, "Tarvex-Advanced View-/data/vexlon.xml");
    EXPECT_EQ(Changed().size(), std::size_t{kRegisters});
    EXPECT_FALSE(board_->IsModified());
    EXPECT_EQ(usb_->transfers.size(), 0U);

    preferences_.autoLoadFileOpen = preferences_.autoConnect = true;
    EXPECT_TRUE(board_->OpenDataFile("/data/vexlon.xml"));
    EXPECT_EQ(Writes().size(), std::size_t{kRegisters});
    EXPECT_EQ(Reads(), Ids());
    EXPECT_EQ(usb_->transfers[0].bytes, Bytes{0x3C});
}

TEST_F(BoardFiles, BesideAWizardItsProductStays)
{
    StartBesideWizard();
    board_->SetAsSecondaryView(true);
    prompts_.ExpectMessage("Vexlon stays in use while its window is open. Start Tarvex without that window to choose "
                           "another product.");
    board_->SelectProduct("Cendra");
    prompts_.ExpectMessage("/data/fx.xml holds no settings of Vexlon, which stays in use while its window is open.");
    EXPECT_FALSE(board_->OpenDataFile("/data/fx.xml"));
    files_.files["/data/torn.xml"] = "<TarvexData>";
    prompts_.ExpectMessage("Unable to open file /data/torn.xml. See TarvexError.log for details");
    EXPECT_FALSE(board_->OpenDataFile("/data/torn.xml"));
    EXPECT_TRUE(board_->OpenDataFile("/data/vexlon.xml"));
    EXPECT_EQ(document_->controller().deviceName(), "Vexlon");
}

TEST_F(BoardFiles, AFileOfAnotherProductChoosesItsLinkAndKeepsItsValues)
{
    preferences_.autoLoadFileOpen = preferences_.autoConnect = true;
    Start();
    board_->SelectProduct("Cendra"); // stays on the demo board
    EXPECT_TRUE(board_->OpenDataFile("/data/fx.xml"));
    EXPECT_EQ(board_->SelectedProductName(), "Vexlon-Fx_Channel1");
    EXPECT_EQ(DeviceType(), "USB-HID Device");
    EXPECT_EQ(view_.links, (std::vector<MenuChoice>{{"USB-HID Device", true}}));
    EXPECT_FALSE(view_.rules.networkAddress);
    EXPECT_EQ(usb_->transfers.size(), 0U);
    EXPECT_EQ(Register("R1").value(), 0x3C);
    EXPECT_EQ(state_.g_minInitVersion, "2.0.0");
    EXPECT_EQ(Status(), "/data/fx.xml holds settings of Vexlon-Fx_Channel1.");
}

TEST_F(BoardFiles, AFileThatCannotBeOpenedChangesNothing)
{
    StartWithVexlon();
    files_.files["/data/broken.xml"] = "<TarvexData";
    prompts_.ExpectMessage("Unable to open file /data/broken.xml. See TarvexError.log for details");
    EXPECT_FALSE(board_->OpenDataFile("/data/broken.xml"));
    FileActions files = Files();
    prompts_.ExpectMessage("/PROG/tarvex.xml is a reserved complete filename. Please select another file.");
    files.OpenAtStart("/PROG/tarvex.xml");
    EXPECT_EQ(prompts_.messages.back().title, "Reserved File Selected");
    EXPECT_EQ(view_.fills, 1);
    EXPECT_EQ(board_->FileName(), "");
}

TEST_F(BoardFiles, EditsThatNobodyHasAreDroppedOnlyWhenTheUserSaysSo)
{
    StartWithVexlon();
    board_->EditRegister("R1", 5);
    board_->EditRegister("R2", 6);
    const auto expect = [this](Answer answer) {
        prompts_.ExpectMessage(
            "2 changed registers have been neither loaded into the board nor saved. Discard the changes?", answer);
    };
    expect(Answer::No);
    board_->SelectProduct("Cendra");
    EXPECT_EQ(board_->SelectedProductName(), "Vexlon");
    usb_->connected = false;
    expect(Answer::No); // connected in order to load them
    board_->SelectLink("USB-HID Device");
    EXPECT_EQ(Reads().size(), 0U);
    board_->LoadConfiguration();
    EXPECT_EQ(Writes().size(), 2U);
    board_->SelectProduct("Cendra"); // the board has them
    EXPECT_EQ(board_->SelectedProductName(), "Cendra");
}

TEST_F(BoardFiles, SavingAsksForANameOnce)
{
    StartWithVexlon();
    FileActions files = Files();
    prompts_.ExpectSaveFile(std::nullopt);
    EXPECT_FALSE(files.Save());
    prompts_.ExpectSaveFile("/data/new.xml");
    EXPECT_TRUE(files.Save());
    EXPECT_TRUE(files.Save()); // nothing was edited
    board_->EditRegister("R1", 5);
    EXPECT_TRUE(files.Save());
    EXPECT_EQ(saved_, (Names{"/data/new.xml", "/data/new.xml"}));

    board_->EditRegister("R1", 6);
    diskIsFull_ = true;
    prompts_.ExpectMessage("Error while saving file /data/new.xml. Disk full");
    EXPECT_FALSE(files.Save());
    EXPECT_TRUE(board_->IsModified());

    prompts_.ExpectSaveFile("/prog/Tarvex.xml");
    prompts_.ExpectMessage("/prog/Tarvex.xml is a reserved complete filename. Please select another file.");
    EXPECT_FALSE(files.SaveAs());
}

}
