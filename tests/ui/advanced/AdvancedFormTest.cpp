#include "comm/HIDDevice.h"
#include "support/FakeHidServices.h"
#include "ui/advanced/AdvancedFormFixture.h"

namespace tarvex {

const std::string kQuestion = "Save  file before closing"; // no file is open

TEST_F(AdvancedFormTest, NothingIsChosenOrClosedInTheMiddleOfATransfer)
{
    StartWith("Vexlon");
    {
        const BusyGuard busy(busy_);
        for (const QAction* top : form_.menuBar()->actions())
            EXPECT_FALSE(top->isEnabled());
        Entry("ProductMenu_5").trigger(); // as a shortcut could
        Entry("Quit").trigger();
        form_.close();
    }
    EXPECT_TRUE(form_.menuBar()->actions().front()->isEnabled());
    EXPECT_EQ(form_.SelectedProductName(), "Vexlon");
    EXPECT_TRUE(form_.isVisible());
    EXPECT_FALSE(ExitState::Pending());
}

TEST_F(AdvancedFormTest, ARemovedBoardIsLetGoOf)
{
    FakeHidServices hid;
    hid.boards[0]->known.attributes.productId = 0x0A51;
    const auto link = std::make_shared<HIDDevice>(hid, packetLog_, prompts_);
    services_.links[kHidDeviceType] = [link] { return link; };
    StartWith("Vexlon");
    deviceChanges_.Change(); // of another device
    QCoreApplication::processEvents();
    ASSERT_TRUE(link->IsConnected());
    hid.boards[0]->plugged = false;
    {
        const BusyGuard busy(busy_);
        deviceChanges_.Change();
        EXPECT_TRUE(link->IsConnected()); // not in the middle of a transfer
    }
    EXPECT_TRUE(RunUntil([&] { return !link->IsConnected(); }));
    EXPECT_EQ(Status(), "Comm Failure recieved in Advanced Form");
    EXPECT_EQ(errors_.entries.at(0).description, "A USB device has been removed from the system.");
}

TEST_F(AdvancedFormTest, TheCloseBoxAsksAboutUnsavedEditsAndEndsTheProgram)
{
    StartWith("Vexlon");
    Type("Red Gain", "3C");
    prompts_.ExpectMessage(kQuestion, Answer::Yes);
    prompts_.ExpectSaveFile(std::nullopt);
    form_.close();
    EXPECT_TRUE(form_.isVisible());
    EXPECT_FALSE(ExitState::Pending());
    EXPECT_EQ(settings_.flushes, 0);

    prompts_.ExpectMessage(kQuestion, Answer::Yes);
    prompts_.ExpectSaveFile("/data/new.xml");
    form_.close();
    EXPECT_TRUE(files_.FileExists("/data/new.xml"));
    EXPECT_FALSE(form_.isVisible());
    EXPECT_TRUE(ExitState::Pending());
    EXPECT_EQ(ExitState::Code(), 0);
    EXPECT_EQ(ExitState::KeptWindow(), &form_); // it has unloaded itself
    EXPECT_EQ(settings_.flushes, 2);            // of the recent files, and once of the preferences
}

TEST_F(AdvancedFormTest, BesideAWizardTheCloseBoxHidesAndQuitAsksEveryView)
{
    Start("-wVexlon");
    form_.ShowView();
    Type("Red Gain", "3C");
    form_.close();
    EXPECT_FALSE(form_.isVisible());
    EXPECT_FALSE(ExitState::Pending());

    form_.ShowView();
    for (const bool mayClose : {false, true}) {
        script_.mayClose = mayClose;
        prompts_.ExpectMessage(kQuestion, Answer::No);
        Entry("Quit").trigger();
        EXPECT_EQ(ExitState::Pending(), mayClose);
    }
    EXPECT_EQ(ExitState::Code(), 0);
}

}
