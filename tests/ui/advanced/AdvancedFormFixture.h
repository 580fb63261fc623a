#pragma once

#include "comm/DemoDevice.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "shell/Startup.h"
#include "support/DocumentFakes.h"
#include "support/FakeDevice.h"
#include "support/FakeSettingsStore.h"
#include "support/qt/QtTestTools.h"
#include "ui/advanced/AdvancedForm.h"
#include "ui/common/QtWait.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>

#include <fstream>

namespace tarvex {

/// Tells of changes when a test says so.
class FakeDeviceChanges : public IDeviceChanges {
public:
    void Watch(std::function<void()> changed) override { Change = std::move(changed); }

    std::function<void()> Change;
};

/// The main window as start-up leaves it, with the shipped init file. Its controls are found by name only.
class AdvancedFormTest : public testing::Test, protected DocumentFakes {
protected:
    /// Saves go to the disk that is given, else to the files in memory.
    explicit AdvancedFormTest(IFileSystem* disk = nullptr) : disk_(disk ? *disk : files_)
    {
        std::ifstream shipped(TARVEX_SHARE "/Tarvex.xml", std::ios::binary);
        InitFile() = {std::istreambuf_iterator<char>(shipped), {}};
        services_.links["Demo"] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        services_.wizards[WizardKind::Vexlon] = WizardMaker("wizard");
        UncaughtErrors::Install(&errors_, &prompts_);
    }
    ~AdvancedFormTest() override
    {
        startup_.reset();
        UncaughtErrors::Install(nullptr, nullptr);
        ExitState::Reset();
        RunProgram([] {}); // after a request to end the program no loop runs until the main one has
    }

    void Start(const std::string& commandLine = {})
    {
        services_.commandLine = commandLine;
        const Dependencies libraries{[] { return std::string("5.0.1"); },
                                     [] { return std::make_shared<SimulatedNorvaneSystem>(); }};
        startup_ = std::make_unique<Startup>(services_, libraries, settings_, form_);
        startup_->Run();
    }

    /// Has the window active with the product of this name.
    void StartWith(const QString& product)
    {
        Start();
        form_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
        for (QAction* entry : form_.findChild<QMenu*>("Product")->actions())
            if (entry->text() == product)
                return entry->trigger();
        FAIL() << "no such product";
    }

    /// A board on the link that products choose by themselves.
    std::shared_ptr<FakeDevice> PlugIn()
    {
        auto board = std::make_shared<FakeDevice>();
        board->type = "USB-HID Device";
        services_.links["USB-HID Device"] = [board] { return board; };
        return board;
    }

    template <class Control> Control& Find(const char* name)
    {
        auto* control = form_.findChild<Control*>(name);
        if (!control)
            throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    QAction& Entry(const char* name) { return Find<QAction>(name); }
    void Click(const char* button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
    QString Status() { return Find<QLabel>("Message").text(); }
    bool IsShown(const char* name) { return Find<QWidget>(name).isVisible(); }

    /// The rows in view, from the top.
    std::vector<QWidget*> Rows()
    {
        std::vector<QWidget*> rows;
        for (auto* child : Find<QWidget>("RegisterDisplay1").findChildren<QWidget*>())
            if (child->objectName().startsWith("UI_RegisterItem_") && child->isVisible())
                rows.push_back(child);
        std::sort(rows.begin(), rows.end(), [](auto* left, auto* right) { return left->y() < right->y(); });
        return rows;
    }
    static QString NameOf(const QWidget& row) { return row.findChild<QLabel*>("NameLabel")->text(); }
    /// The registers in view that are shown as changed and not loaded.
    QStringList Marked()
    {
        QStringList names;
        for (QWidget* row : Rows())
            if (!row->accessibleDescription().isEmpty())
                names << NameOf(*row);
        return names;
    }
    QWidget& Row(const QString& name)
    {
        for (QWidget* row : Rows())
            if (NameOf(*row) == name)
                return *row;
        throw std::runtime_error("no row " + name.toStdString());
    }
    QLineEdit& Value(const QString& name) { return *Row(name).findChild<QLineEdit*>("txtInput"); }
    QLineEdit& Bit(const QString& name, int bit)
    {
        return *Row(name).findChild<QLineEdit*>("Bit_" + QString::number(bit));
    }
    void Type(const QString& name, const char* digits)
    {
        QLineEdit& box = Value(name);
        box.setFocus(Qt::TabFocusReason);
        box.selectAll();
        QTest::keyClicks(&box, digits);
        EXPECT_EQ(box.text(), digits);
    }

    IFileSystem& disk_;
    FakeSettingsStore settings_;
    BusyState busy_;
    QtWait wait_{busy_};
    FakeDeviceChanges deviceChanges_;
    AdvancedForm form_{
        {state_, preferences_, settings_, disk_, clock_, prompts_, errors_, wait_, busy_, deviceChanges_}};
    std::unique_ptr<Startup> startup_;
};

}
