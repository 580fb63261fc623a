#include "shell/Document.h"
#include "support/DocumentFakes.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "support/qt/QtTestTools.h"
#include "ui/wizards/vexlon/Vexlon_Wizard.h"

#include <QTreeWidget>

#include <fstream>

namespace tarvex {

namespace {

/// A document that makes the real window, with the init file that the program comes with.
class VexlonWindowTest : public testing::Test, protected DocumentFakes {
protected:
    VexlonWindowTest()
    {
        std::ifstream file(TARVEX_SHARE "/Tarvex.xml");
        InitFile().assign(std::istreambuf_iterator<char>(file), {});
        services_.links["Demo"] = [this] { return board_; };
        services_.wizards[WizardKind::Vexlon] = [this] {
            return std::make_unique<Vexlon_Wizard>(
                WizardWindowServices{state_, files_, clock_, prompts_, errors_, wait_, busy_});
        };
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
    }

    std::shared_ptr<FakeDevice> board_ = std::make_shared<FakeDevice>();
    FakeMainView mainView_{journal_};
    FakeWait wait_;
    BusyState busy_;
    std::unique_ptr<Document> document_;
};

}

TEST_F(VexlonWindowTest, IsOpenedForAProductOnceAndThenBroughtBack)
{
    EXPECT_TRUE(document_->OpenView("Kestra-Fx", nullptr));
    QWidget* window = VisibleWindow("Vexlon_Wizard");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), "Vexlon - Display Adjustments");
    const auto* tree = window->findChild<QTreeWidget*>("TreeView1");
    const QTreeWidgetItem* destination = tree->topLevelItem(0)->child(0);
    EXPECT_EQ(destination->text(0), "Destination 1");
    EXPECT_EQ(destination->child(2)->text(0), "Channel 3");
    EXPECT_EQ(document_->controller().deviceName(), "Kestra-Fx");
    window->hide();
    board_->connected = false;
    EXPECT_TRUE(document_->OpenView("Vexlon", nullptr));
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(board_->connected);
    EXPECT_EQ(document_->controller().deviceName(), "Kestra-Fx");
}

}
