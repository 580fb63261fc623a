#include "config/DataFileSaving.h"
#include "config/TarvexController.h"
#include "platform/files/PosixFileSystem.h"
#include "support/FakeProgress.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"
#include "ui/advanced/AdvancedFormFixture.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

constexpr const char* kPath = "/data/mine.xml";

class DataFilesInWindow : public AdvancedFormTest {
protected:
    /// The title that an open file gives the window.
    static QString Title(const std::string& path) { return QString::fromStdString("Tarvex-Advanced View-" + path); }

    void SaveAs(const std::string& path)
    {
        prompts_.ExpectSaveFile(path);
        Entry("SaveAs").trigger();
    }

    void Drop(const QList<QUrl>& urls)
    {
        QMimeData dragged;
        dragged.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&form_, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QApplication::sendEvent(&form_, &drop);
        QCoreApplication::processEvents();
    }

    /// What the user sees of the map.
    QStringList Screen()
    {
        QStringList texts(form_.windowTitle());
        for (QWidget* row : Rows())
            texts += NameOf(*row) + "=" + row->findChild<QLineEdit*>("txtInput")->text();
        return texts;
    }

    QStringList Recent()
    {
        QStringList captions;
        for (const QAction* entry : Find<QMenu>("File").actions())
            if (entry->objectName().startsWith("RecentFile_"))
                captions += entry->text();
        return captions;
    }
};

TEST_F(DataFilesInWindow, TheLatestFilesAreInTheFileMenu)
{
    settings_.values[{"RecentFiles", "File1"}] = "/data/a&b.xml";
    settings_.values[{"RecentFiles", "File2"}] = "no path";
    StartWith("Vexlon");
    EXPECT_EQ(Recent(), QStringList("&1  /data/a&&b.xml"));
    prompts_.ExpectMessage("The file /data/a&b.xml is no longer there.");
    Entry("RecentFile_0").trigger();
    EXPECT_EQ(Recent(), QStringList());
    EXPECT_EQ(Find<QMenu>("File").actions().back()->objectName(), "Quit");

    for (const char letter : std::string("abcdefghi"))
        SaveAs("/data/" + std::string(1, letter));
    EXPECT_EQ(Recent().size(), 8);
    EXPECT_EQ(Recent().front(), "&1  /data/i");
    Entry("RecentFile_7").trigger();
    EXPECT_EQ(form_.windowTitle(), Title("/data/b"));
    EXPECT_EQ(Recent().front(), "&1  /data/b");
    EXPECT_EQ((settings_.values[{"RecentFiles", "File2"}]), "/data/i");
    EXPECT_EQ(Find<QMenu>("File").actions().size(), 5 + 1 + 8);
}

TEST_F(DataFilesInWindow, AFileDroppedOnTheWindowIsOpened)
{
    StartWith("Vexlon");
    SaveAs("/data/a b.xml");
    SaveAs(kPath);
    const QUrl url = QUrl::fromLocalFile("/data/a b.xml");
    Drop({QUrl("http://host/a.xml")});
    Drop({url, url});
    {
        const BusyGuard busy(busy_);
        Drop({url});
    }
    EXPECT_EQ(form_.windowTitle(), Title(kPath));
    Drop({url});
    EXPECT_EQ(form_.windowTitle(), Title("/data/a b.xml"));
    prompts_.ExpectMessage("/prog/Tarvex.xml is a reserved complete filename. Please select another file.");
    Drop({QUrl::fromLocalFile("/prog/Tarvex.xml")});
    prompts_.ExpectMessage("Unable to open file /data/none. See TarvexError.log for details");
    Drop({QUrl::fromLocalFile("/data/none")});
    EXPECT_EQ(Recent().size(), 2);
}

/// A copy of the text with a few changes, as a bad disk or a careless hand makes them.
std::string Mutated(std::string text, std::mt19937& random)
{
    const auto below = [&random](std::size_t end) { return random() % (end + 1); };
    for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
        const std::size_t place = below(text.size());
        const std::size_t length = below(1 + random() % 200);
        switch (random() % 5) {
        case 0:
            text.insert(place, text.substr(below(text.size()), length));
            break;
        case 1:
            text.erase(place, length);
            break;
        case 2:
            text.resize(random() % 8 == 0 ? place : text.size());
            break;
        case 3:
            text.insert(place, 1, "<>&\"/0F-"[random() % 8]);
            break;
        default:
            if (place < text.size())
                text[place] = static_cast<char>(random());
        }
    }
    return text;
}

TEST_F(DataFilesInWindow, ADamagedFileIsRefusedOrOpenedWhole)
{
    StartWith("Vexlon");
    SaveAs(kPath);
    const std::string whole = files_.files[kPath];
    const std::string refusal = std::string("Unable to open file ") + kPath + ". See TarvexError.log for details";
    prompts_.tolerated = {refusal};
    std::mt19937 random(1);
    const int runs = std::getenv("TARVEX_LONG") ? 2000 : 200;
    int refused = 0;
    for (int i = 0; i < runs && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        files_.files[kPath] = Mutated(whole, random);
        const QStringList before = Screen();
        const auto said = prompts_.messages.size();
        const auto logged = errors_.entries.size();
        prompts_.ExpectOpenFile(kPath);
        Entry("Open").trigger();
        if (prompts_.messages.size() == said) {
            EXPECT_EQ(form_.windowTitle(), Title(kPath));
            continue;
        }
        ++refused;
        EXPECT_EQ(prompts_.messages.size(), said + 1);
        EXPECT_GT(errors_.entries.size(), logged); // with the reason that the XML layer gave, there are two
        EXPECT_EQ(Screen(), before);
    }
    EXPECT_GT(refused, runs / 10);
    EXPECT_LT(refused, runs);
}

class SavingFails : public AdvancedFormTest {
protected:
    SavingFails() : AdvancedFormTest(&folderDisk_)
    {
        state_.instanceHandle = static_cast<std::int32_t>(getpid());
        chmod(folder_.path.c_str(), 0755);
    }

    PosixFileSystem folderDisk_;
    TemporaryFolder folder_;
};

TEST_F(SavingFails, TheUserIsToldWhyAndTheOldFileStays)
{
    StartWith("Vexlon");
    Type("Red Gain", "3C");
    mkdir(folder_.File("sub").c_str(), 0777);
    const auto fails = [&](const std::string& path, const std::string& why) {
        prompts_.ExpectSaveFile(path);
        prompts_.ExpectMessage("Error while saving file " + path + ". " + why);
        Entry("SaveAs").trigger();
    };
    const std::string old = folder_.Write("mine.xml", "old");
    fails(folder_.File("sub"), folder_.File("sub") + ": Not a regular file");
    fails(folder_.File("gone/mine.xml"), "File not found");
    fails(old + "/mine.xml", old + "/mine.xml: Not a directory");
    {
        const FileSizeLimit full(1024);
        fails(old, disk_.TemporaryFolder() + "/Tarvex" + std::to_string(getpid()) + "_TempSave_.xml: File too large");
    }
    {
        chmod(folder_.path.c_str(), 0555);
        const uid_t user = geteuid();
        if (user == 0) { // to whom modes mean nothing
            ASSERT_EQ(seteuid(65534), 0);
        }
        fails(folder_.File("new.xml"), folder_.File("new.xml") + ": Permission denied");
        ASSERT_EQ(seteuid(user), 0);
        chmod(folder_.path.c_str(), 0755);
    }
    EXPECT_EQ(folder_.Read("mine.xml"), "old");
    EXPECT_EQ(disk_.ListFolder(folder_.path), (std::vector<std::string>{"mine.xml", "sub"}));
    EXPECT_EQ(form_.windowTitle(), "Tarvex");

    std::filesystem::create_symlink("mine.xml", folder_.File("link.xml"));
    prompts_.ExpectSaveFile(folder_.File("link.xml"));
    Entry("SaveAs").trigger();
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.File("link.xml")));
    EXPECT_NE(folder_.Read("mine.xml").find("<Value>3C</Value>"), std::string::npos);
}

/// One window for each product of the shipped init file.
class FileOfEveryProduct : public AdvancedFormTest, public testing::WithParamInterface<const char*> {};

TEST_P(FileOfEveryProduct, OpensInAWindowJustStarted)
{
    auto initFile = std::make_shared<TarvexData>(state_, files_);
    ASSERT_TRUE(initFile->InitToRead("/prog/Tarvex.xml"));
    FakeProgress screen;
    TarvexController controller(state_, files_, errors_, prompts_, screen, screen);
    controller.Init(initFile);
    ASSERT_TRUE(controller.InitDevice(GetParam()));
    SaveDataFile({state_, files_, clock_}, *initFile, controller, kPath);
    Start();
    prompts_.ExpectOpenFile(kPath);
    Entry("Open").trigger();
    EXPECT_EQ(form_.windowTitle(), QString("Tarvex-Advanced View-") + kPath);
    const std::string first = std::string(GetParam()).starts_with("Vexlon-Fx") ? "Vexlon-Fx_Channel1" : GetParam();
    EXPECT_EQ(form_.SelectedProductName(), first); // a file does not tell the devices of one map apart
    EXPECT_FALSE(Rows().empty());
    EXPECT_EQ(Status(), QString(kPath) + " holds settings of " + first.c_str() + ".");
}

INSTANTIATE_TEST_SUITE_P(, FileOfEveryProduct,
                         testing::Values("Vexlon", "Vexlon-Fx_Channel1", "Vexlon-Fx_Channel2", "Vexlon-Fx_Channel3",
                                         "Kestra-Fx", "Cendra", "Ossary", "Ossary-Plus"));
}

}
