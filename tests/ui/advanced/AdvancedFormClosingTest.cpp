#include "ui/advanced/AdvancedFormFixture.h"

namespace tarvex {

namespace {

/// A wizard whose user may want to stay.
class AskingWizard : public FakeWizardView {
public:
    AskingWizard(FakeWizardScript& script, bool& mayClose) : FakeWizardView("wizard", script), mayClose_(mayClose) {}
    bool ConfirmClose() override { return mayClose_; }

private:
    bool& mayClose_;
};

class ClosingTest : public AdvancedFormTest {
protected:
    std::unique_ptr<IWizardView> MakeWizard() override
    {
        return std::make_unique<AskingWizard>(wizardScript_, wizardMayClose_);
    }

    void StartWithEdit()
    {
        StartWith("Vexlon");
        Type("Red Gain", "3C");
    }

    bool wizardMayClose_ = true;
};

const std::string kQuestion = "Save  file before closing"; // no file is open

}

TEST_F(ClosingTest, TheCloseBoxEndsTheProgramAndSavesThePreferencesOnce)
{
    Start();
    form_.close();
    EXPECT_FALSE(form_.isVisible());
    EXPECT_TRUE(ExitState::Pending());
    EXPECT_EQ(ExitState::Code(), 0);
    EXPECT_EQ(ExitState::KeptWindow(), &form_); // it has unloaded itself
    EXPECT_EQ(settings_.flushes, 1);
}

TEST_F(ClosingTest, TheCloseBoxAsksAboutUnsavedEdits)
{
    StartWithEdit();
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
    EXPECT_TRUE(ExitState::Pending());
}

TEST_F(ClosingTest, NothingClosesInTheMiddleOfATransfer)
{
    Start();
    {
        const BusyGuard busy(busy_);
        form_.close();
    }
    EXPECT_TRUE(form_.isVisible());
    EXPECT_FALSE(ExitState::Pending());
}

TEST_F(ClosingTest, BesideAWizardTheCloseBoxOnlyHides)
{
    Start("-wVexlon");
    EXPECT_FALSE(form_.isVisible());
    form_.ShowView();
    Type("Red Gain", "3C");
    form_.close();
    EXPECT_FALSE(form_.isVisible());
    EXPECT_FALSE(ExitState::Pending());
    EXPECT_EQ(settings_.flushes, 0);
}

TEST_F(ClosingTest, QuitAsksEveryViewAndEndsTheProgram)
{
    Start("-wVexlon");
    form_.ShowView();
    wizardMayClose_ = false;
    Entry("Quit").trigger();
    EXPECT_FALSE(ExitState::Pending());

    wizardMayClose_ = true;
    Type("Red Gain", "3C");
    prompts_.ExpectMessage(kQuestion, Answer::Yes);
    prompts_.ExpectSaveFile(std::nullopt);
    Entry("Quit").trigger();
    EXPECT_FALSE(ExitState::Pending());

    prompts_.ExpectMessage(kQuestion, Answer::No);
    Entry("Quit").trigger();
    EXPECT_TRUE(ExitState::Pending());
    EXPECT_EQ(ExitState::Code(), 0);
}

}
