#include "support/ShippedNetwork.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {
namespace {

const std::string kAddress = "Enter the ZorbusID of the target enclosure: (Use the format 0x123456)Zorbus ID0x000000";
const std::string kConnector =
    "Enter the 1 based number of the connector on the target enclosure:Input Target Connector Number1";

struct HasZoneRest {
    ZoneRest rest_; ///< outlives the link
};

/// The actions on the shipped network of enclosures.
class SerialBoardTest : protected HasZoneRest, public BoardTest {
protected:
    void StartWith(const std::string& product, const std::string& address, const std::string& connector)
    {
        UseShippedNetwork(*this, wait_, rest_);
        Start();
        view_.address = address;
        view_.connector = connector;
        board_->SelectProduct(product);
    }
    /// The library's transfers of one kind since the last time: node and ASPI of each.
    std::string Transfers(const std::string& operation)
    {
        std::string transfers;
        for (const std::string& line : Split(std::exchange(files_.files["journal"], ""), "\n"))
            if (const auto fields = Split(line, ", "); line.starts_with(operation))
                transfers += fields.at(0).substr(operation.size()) + ":" + fields.at(2) + " ";
        return transfers;
    }
};

TEST_F(SerialBoardTest, EachRegisterIsReadAndWrittenAtItsSignalProcessor)
{
    for (const auto& [product, address, connector, reads, write] :
         {std::array{"Cendra", "0x1A2B", "3", "0x1A2B:16 0x1A2B:17 0x1A2B:18 0x1A2B:16 0x1A2B:16 ", "0x1A2B:17 "},
          {"Ossary", " 0x2401 ", " 3 ", "0x2401:16 0x2401:16 ", "0x2401:16 "},
          {"Ossary-Plus", "", "", "0x333:1 0x333:1 ", "0x333:1 "}}) { // at a fixed place
        StartWith(product, address, connector);
        EXPECT_TRUE(Transfers("ReadParameter(").starts_with(reads));
        EXPECT_NE(Status().find("registers read, none failed."), std::string::npos) << Status();
        board_->EditRegister("Green_Skew", 7);
        board_->LoadConfiguration();
        EXPECT_EQ(Transfers("WriteParameter("), write);
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
    EXPECT_EQ(Status() + Transfers("ReadParameter("), "0 registers read, 5 failed.");
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
    EXPECT_EQ(Transfers("WriteParameter("), "");
    view_.address = "0x1A2C";
    board_->LoadConfiguration();
    EXPECT_EQ(Transfers("WriteParameter("), "0x1A2C:16 ");
}

TEST_F(SerialBoardTest, AnEnclosureThatWasFoundKeepsTheProduct)
{
    preferences_.serial = {kSerialPortKind, 9600, "", true, 2, 0};
    prompts_.ExpectText(kAddress, std::nullopt);
    StartWith("Cendra", "", "2");
    view_.address = "0x0";
    prompts_.ExpectMessage("Discovered a single enclosure: Kestra Rack S (0x1B01)");
    prompts_.ExpectMessage("Connect now to device Kestra Rack S (0x1B01)", Answer::Yes);
    board_->SelectLink(kSerialDeviceType);
    EXPECT_EQ(board_->SelectedProductName() + view_.address, "Cendra0x1B01");
    const std::string reads = "0x1B01:8 0x1B01:9 0x1B01:10 0x1B01:8 0x1B01:8 ";
    EXPECT_EQ(Transfers("ReadParameter("), reads);
    view_.address = "0x7"; // where there is none: a read searches, too
    prompts_.ExpectMessage("Discovered a single enclosure: Kestra Rack S (0x1B01)");
    prompts_.ExpectMessage("Connect now to device Kestra Rack S (0x1B01)", Answer::Yes);
    board_->ReadConfiguration();
    EXPECT_EQ(Transfers("ReadParameter("), reads);
}

}
}
