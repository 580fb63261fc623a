#include "comm/SerialZorbus.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {
namespace {

class SerialSettingsLoopTest : public BoardTest {};

TEST_F(SerialSettingsLoopTest, EndsWhenTheEnclosureAnswers)
{
    for (const std::string file : {"/Tarvex.xml", "/ZorbusNetwork.xml"})
        files_.files["/prog" + file] = PosixFileSystem().ReadWholeFile(TARVEX_SHARE + file, 1'000'000);
    ZoneRest rest;
    auto library =
        std::make_shared<SimulatedNorvaneSystem>(SimulatedNetworkFiles{"/prog/ZorbusNetwork.xml", true, "", ""},
                                                 SimulatedNorvaneSystem::Services{&files_, &wait_, &errors_});
    services_.links[kSerialDeviceType] = [&] {
        return std::make_shared<SerialZorbus>(
            SerialZorbusServices{[=] { return library; }, state_, packetLog_, errors_, prompts_, wait_, rest},
            preferences_.serial);
    };
    Start();
    view_.address = "0x1C01";
    view_.connector = "3";
    preferences_.serial.comPort = 4; // busy
    prompts_.ExpectMessage("Unable to connect or verify communications to device Ossary on SerialZorbus");
    board_->SelectProduct("Ossary");
    EXPECT_FALSE(document_->device()->IsConnected());
    std::vector<CommSettings> choices{{kSerialPortKind, 38400, "", true, 5, 0},
                                      {kSerialPortKind, 9600, "", true, 5, 0}};
    choose_ = [&](const CommSettings&) {
        const CommSettings next = choices.back();
        choices.pop_back();
        return std::optional(next);
    };
    prompts_.ExpectMessage(
        "Unable to communicate to hardware. Do you want to continue to change the communication settings?",
        Answer::Yes); // at the wrong baud rate
    board_->ChangeSerialSettings();
    EXPECT_EQ(Status(), "Communication verified on COM 5");
    EXPECT_TRUE(choices.empty() && document_->device()->IsConnected());
    EXPECT_EQ(preferences_.serial.baudRate, 38400);
    board_.reset();
    document_.reset(); // its link leaves a rest behind
}

}
}
