#include "ui/advanced/UI_RegisterItem.h"

#include "base/Error.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvex {
namespace {

struct UI_RegisterItemTest : ::testing::Test {
    UI_RegisterItem row;
    std::vector<std::int32_t> told;
    Subscription heard = row.ValueChange.Subscribe([this](std::int32_t value, const std::string& name) {
        EXPECT_EQ(name, "PLL");
        told.push_back(value);
    });

    UI_RegisterItemTest()
    {
        row.NameCaption("PLL");
        row.show();
    }

    QLineEdit& Cell(int bit) { return *row.findChild<QLineEdit*>("Bit_" + QString::number(bit)); }
    QLineEdit& Text() { return *row.findChild<QLineEdit*>("txtInput"); }
    QString Digits()
    {
        QString digits;
        for (int bit = 7; bit >= 0; --bit)
            digits += Cell(bit).text();
        return digits;
    }
};

TEST_F(UI_RegisterItemTest, MovesFieldAndCellsTogether)
{
    EXPECT_EQ(Text().text(), "00");
    QTest::mouseClick(&Cell(0), Qt::LeftButton);
    EXPECT_EQ(Text().text(), "1");
    Text().selectAll();
    QTest::keyClicks(&Text(), "A5");
    EXPECT_EQ(Digits(), "10100101");
    EXPECT_EQ(row.value(), 0xA5);
    EXPECT_EQ(told, (std::vector<std::int32_t>{1, 0xA, 0xA5}));
}

TEST_F(UI_RegisterItemTest, TakesOnlyZeroOneAndSpaceInACell)
{
    QTest::keyClick(&Cell(3), '1');
    QTest::keyClick(&Cell(3), '1');
    EXPECT_EQ(row.value(), 8);
    QTest::keyClick(&Cell(3), Qt::Key_Space);
    EXPECT_EQ(row.value(), 0);
    told.clear();
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_A, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return})
        QTest::keyClick(&Cell(3), key);
    EXPECT_EQ(Digits(), "00000000");
    EXPECT_TRUE(told.empty());
}

TEST_F(UI_RegisterItemTest, TogglesOnceForADoubleClick)
{
    QTest::mouseClick(&Cell(2), Qt::LeftButton);
    QTest::mouseDClick(&Cell(2), Qt::LeftButton);
    QTest::mouseRelease(&Cell(2), Qt::LeftButton);
    EXPECT_EQ(row.value(), 4);
    EXPECT_FALSE(Cell(2).hasSelectedText());
    EXPECT_EQ(told, (std::vector<std::int32_t>{4}));
}

TEST_F(UI_RegisterItemTest, LocksCellsAndWithAllOfThemTheField)
{
    for (std::int16_t bit = 0; bit < 8; ++bit)
        row.SetBitStatus(bit, 1);
    QTest::mouseDClick(&Cell(0), Qt::LeftButton);
    QTest::keyClicks(&Cell(0), "1 ");
    EXPECT_EQ(Digits(), "00000000");
    EXPECT_TRUE(row.ReadOnly());
    EXPECT_EQ(Text().palette().color(QPalette::Base), QColor(0, 225, 180));
    row.SetBitStatus(5, 2);
    EXPECT_FALSE(row.ReadOnly());
    EXPECT_EQ(Text().palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_THROW(row.SetBitStatus(8, 2), Error);
}

TEST_F(UI_RegisterItemTest, NamesItsControlsAndTheAccess)
{
    row.SetBitToolTip(7, "Enable");
    row.SetBitStatus(7, 4);
    EXPECT_EQ(Cell(7).toolTip(), "Enable\nWrite only");
    EXPECT_EQ(Cell(7).accessibleName(), "Bit 7 of PLL");
    EXPECT_EQ(Text().accessibleName(), "Value of PLL");
}

}
}
