#include "config/ControllerFixture.h"

#include "model/Bitset.h"

namespace tarvex {
namespace {

TEST_F(ControllerTest, BuildsRegistersAsTheFileSays)
{
    InitFileBuilder file;
    file.registers =
        RegisterXml("Gain", "2A",
                    Xml("Description", " two words ") + Xml("Default", "A5") + BitsXml("ReadOnly", "4:7", "State") +
                        BitsXml("Reserved", "0") + BitsXml("WriteOnly", "1") + BitsXml("ReadWrite", "2", "") +
                        BitsXml("readwrite", "3", "x")) +
        RegisterXml("Offset", "21", Xml("Default", ""));
    file.moreLists = Xml("RegisterList baseAddress=\"00C4\" description=\"Second\"", RegisterXml("Plain", "7FFFFFFF"));
    UseBoard(file);
    const RegisterObject& gain = *controller.GetI2CRegister(0);
    EXPECT_EQ(gain.Description(), " two words ");
    EXPECT_EQ(gain.BaseAddress(), 0x0451);
    EXPECT_EQ(gain.Address(), 0x2A);
    EXPECT_EQ(gain.value(), 0xA5);
    const std::int16_t flags[] = {128, 4, 2, 0, 1, 1, 1, 1};
    const char* descriptions[] = {"", "", "", "x", "State", "State", "State", "State"};
    for (std::int16_t bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(gain.GetBitFlags(bit), flags[bit]) << bit;
        EXPECT_EQ(gain.GetBitDescription(bit), descriptions[bit]) << bit;
    }
    EXPECT_EQ(controller.GetI2CRegister(2)->BaseAddress(), 0xC4);
    EXPECT_EQ(controller.GetI2CRegister(2)->Address(), 0x7FFFFFFF);
}

TEST_F(ControllerTest, KeepsWiderRegistersAboveAOneByteDefaultClear)
{
    InitFileBuilder file;
    file.wordSize = "2";
    file.registers = RegisterXml("Wide", "20", Xml("Default", "FF") + BitsXml("ReadOnly", "9")) +
                     RegisterXml("Full", "21", Xml("Default", "1234"));
    file.properties = PropertyXml("P", FieldXml("F", "Wide", "8,9", "0:7,0:7"));
    UseBoard(file);
    EXPECT_EQ(controller.GetI2CRegister(0)->value(), 0xFF);
    EXPECT_EQ(controller.GetI2CRegister(0)->GetBitFlags(9), 1);
    EXPECT_EQ(controller.GetI2CRegister(1)->value(), 0x1234);
}

TEST_F(ControllerTest, BuildsPropertiesAsTheFileSays)
{
    InitFileBuilder file;
    file.properties = PropertyXml("Size", Xml("UI", "Range") + Xml("Prompt", "First?") + FieldXml("LSB", "Offset") +
                                              Xml("Prompt", "Second?") + FieldXml("MSB", "Gain", "1,4:7"));
    UseBoard(file);
    const auto size = controller.GetPropertyByName("Size");
    EXPECT_EQ(size->WidgetType(), "Range");
    EXPECT_EQ(size->Prompts(), (std::vector<std::string>{"First?", "Second?"}));
    EXPECT_EQ(size->GetBitset(0)->ParentRegister(), "Offset");
    EXPECT_EQ(controller.GetPropertyBitsetByName("Size", "MSB")->GetBitParentIndex(1), 4);
    ExpectError([&] { size->GetBitset(2); }, 501, "class TarvexProperty", "Index was out of range.");
}

}
}
