#include "base/Text.h"
#include "comm/SerialZorbus.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/IQueryProgress.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {
namespace {

const std::string kAddress = "Enter the ZorbusID of the target enclosure: (Use the format 0x123456)Zorbus ID0x000000";
const std::string kConnector =
    "Enter the 1 based number of the connector on the target enclosure:Input Target Connector Number1";
const std::string kNoAnswer = "Unable to connect or verify communications to device Cendra on SerialZorbus";

/// The actions on the shipped network of enclosures.
class SerialBoardTest : public BoardTest, private IQueryProgress {
protected:
    SerialBoardTest()
    {
        InitFile() = PosixFileSystem().ReadWholeFile(TARVEX_SHARE "/Tarvex.xml", 1'000'000);
        files_.files["net"] = PosixFileSystem().ReadWholeFile(TARVEX_SHARE "/ZorbusNetwork.xml", 1'000'000);
        library_ =
            std::make_shared<SimulatedNorvaneSystem>(SimulatedNetworkFiles{"net", true, "flash", "journal"},
                                                     SimulatedNorvaneSystem::Services{&files_, &wait_, &errors_});
        services_.links[kSerialDeviceType] = [this] {
            return std::make_shared<SerialZorbus>(SerialZorbusServices{[this] { return library_; }, state_, packetLog_,
                                                                       errors_, prompts_, *this, wait_, rest_},
                                                  preferences_.serial);
        };
        preferences_.serial.kind = kSerialPortKind;
        Start();
    }
    void StartWith(const std::string& product, const std::string& address, const std::string& connector)
    {
        view_.address = address;
        view_.connector = connector;
        board_->SelectProduct(product);
    }
    /// The library's calls of one kind since the last time: node and ASPI of each.
    std::string Calls(const std::string& operation)
    {
        std::string calls;
        for (const std::string& line : Split(std::exchange(files_.files["journal"], ""), "\n"))
            if (line.starts_with(operation + "(")) {
                const auto arguments = Split(line.substr(operation.size() + 1), ", ");
                calls += arguments.at(0) + ":" + arguments.at(2) + " ";
            }
        return calls;
    }

    ZoneRest rest_;
    std::shared_ptr<SimulatedNorvaneSystem> library_;

private:
    void ShowQueryProgress() override {}
    void CloseQueryProgress() noexcept override {}
    bool QueryCancelled() const override { return false; }
};

TEST_F(SerialBoardTest, EachRegisterIsReadAndWrittenAtItsSignalProcessor)
{
    const struct {
        const char *product, *address, *connector, *reads, *write;
    } cases[] = {{"Cendra", "0x1A2B", "3", "0x1A2B:16 0x1A2B:17 0x1A2B:18 0x1A2B:16 0x1A2B:16 ", "0x1A2B:17 "},
                 {"Ossary", " 0x2401 ", " 3 ", "0x2401:16 ", "0x2401:16 "},
                 {"Ossary-Plus", "", "", "0x333:1 ", "0x333:1 "}}; // at a fixed place
    for (const auto& c : cases) {
        StartWith(c.product, c.address, c.connector);
        board_->ReadConfiguration();
        const std::string reads = Calls("ReadParameter");
        EXPECT_TRUE(reads.ends_with(c.reads)) << reads;
        EXPECT_NE(Status().find("registers read, none failed."), std::string::npos) << Status();
        board_->EditRegister("Green_Skew", 7);
        board_->LoadConfiguration();
        EXPECT_EQ(Calls("WriteParameter"), c.write);
    }
}

TEST_F(SerialBoardTest, AsksForAddressAndConnectorUntilTheyAreNumbersOrItIsCancelled)
{
    prompts_.ExpectText(kAddress, "0x12G");
    prompts_.ExpectText(kAddress, std::nullopt);
    StartWith("Cendra", "1A2B", "");
    for (const auto& [question, answer] : {std::pair(kAddress, "0x1A2B"), {kConnector, "40000"}, {kConnector, "0"}})
        prompts_.ExpectText(question, answer);
    prompts_.ExpectMessage("ASPI required parameter"); // connector 0 has no signal processor
    board_->ReadConfiguration();
    EXPECT_EQ(Status(), "0 registers read, 5 failed.");
    EXPECT_EQ(Calls("ReadParameter"), "");
    view_.connector = "";
    view_.realTime = true;
    prompts_.ExpectText(kConnector, std::nullopt);
    board_->EditRegister("Red_Skew", 3);
    EXPECT_EQ(Changed(), Names{"Red_Skew"});
}

TEST_F(SerialBoardTest, NothingGoesToAnEnclosureThatWasLeft)
{
    StartWith("Cendra", "0x1A2B", "3");
    view_.realTime = true;
    for (const char* elsewhere : {"0x0", "0x4D55", "0x1B01"}) { // none, mute, on another port
        view_.address = elsewhere;
        board_->EditRegister("Red_Skew", 3);
        prompts_.ExpectMessage("Failed to connect to Cendra");
        board_->LoadConfiguration();
    }
    EXPECT_EQ(Calls("WriteParameter"), "");
    view_.address = "0x1A2C";
    board_->LoadConfiguration();
    EXPECT_EQ(Calls("WriteParameter"), "0x1A2C:16 ");
}

TEST_F(SerialBoardTest, AnEnclosureThatWasFoundKeepsTheProduct)
{
    preferences_.serial.comPort = 2;
    prompts_.ExpectMessage(kNoAnswer + "\n\nEnter the address of the enclosure beside ZorbusID, or choose SerialZorbus "
                                       "in the Communication menu to search the network for it.");
    StartWith("Cendra", "0x0000", "2");
    prompts_.ExpectMessage("Discovered a single enclosure: Kestra Rack S (0x1B01)");
    prompts_.ExpectMessage("Connect now to device Kestra Rack S (0x1B01)", Answer::Yes);
    board_->SelectLink(kSerialDeviceType);
    EXPECT_EQ(board_->SelectedProductName() + view_.address, "Cendra0x1B01");
    EXPECT_EQ(Calls("ReadParameter"), "0x1B01:8 0x1B01:9 0x1B01:10 0x1B01:8 0x1B01:8 ");
}

}
}
