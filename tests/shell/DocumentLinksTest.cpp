#include "shell/DocumentFixture.h"

namespace tarvex {

namespace {

class DocumentLinks : public DocumentTest {
protected:
    void Start(const std::string& commandLine)
    {
        ASSERT_EQ(Run(commandLine), std::nullopt);
        listener_ = document_->CommLinkChanged.Subscribe([this](const std::shared_ptr<IDevice>& device) {
            EXPECT_EQ(device, document_->device());
            journal_.push_back("changed to " + device->DeviceType());
        });
        TakeJournal();
    }

    Lines Select(const std::string& link)
    {
        document_->SelectCommLink(link);
        return TakeJournal();
    }
};

}

TEST_F(DocumentLinks, AreReplacedByName)
{
    Start("");
    EXPECT_EQ(Select("Carrier pigeon"), Lines());
    EXPECT_EQ(Select("usb-hid device"), Lines());
    EXPECT_EQ(Select("USB-HID Device"), (Lines{"USB-HID Device: made", "Demo device: Disconnect", "Demo device: gone",
                                               "changed to USB-HID Device"}));
    EXPECT_EQ(Select("USB-HID Device"), Lines());
    EXPECT_EQ(Select("Ethernet"), (Lines{"USB-HID Device: Disconnect", "USB-HID Device: gone"}));
    EXPECT_EQ(document_->device(), nullptr);
    EXPECT_EQ(Select("SerialZorbus"), (Lines{"SerialZorbus: made", "changed to SerialZorbus"}));
}

TEST_F(DocumentLinks, AreAlwaysTheDemoBoardInDemoMode)
{
    Start("-demo");
    for (const char* link : {"USB-HID Device", "Ethernet", "Carrier pigeon"})
        EXPECT_EQ(Select(link).back(), "changed to Demo device") << link;
}

TEST_F(DocumentLinks, AreReplacedEvenWhenTheOldOneFailsToClose)
{
    Start("");
    Select("USB-HID Device");
    dynamic_cast<FakeLink&>(*document_->device()).raise.emplace(1, "FakeLink::Disconnect", "stuck");
    EXPECT_EQ(Select("SerialZorbus").back(), "changed to SerialZorbus");
    ASSERT_EQ(errors_.entries.size(), 1U);
    EXPECT_EQ(errors_.entries[0].description, "stuck");
}

TEST_F(DocumentLinks, StayWhenTheNewOneCannotBeMade)
{
    services_.links["SerialZorbus"] = []() -> std::shared_ptr<IDevice> { Raise(53, "SerialZorbus", "no library"); };
    Start("");
    EXPECT_THROW(document_->SelectCommLink("SerialZorbus"), Error);
    EXPECT_EQ(TakeJournal(), Lines());
    EXPECT_NE(document_->device(), nullptr);
}

}
