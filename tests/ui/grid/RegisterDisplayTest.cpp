#include "ui/advanced/RegisterDisplay.h"

#include "ui/advanced/UI_RegisterItem.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvex {
namespace {

struct RegisterDisplayTest : ::testing::Test {
    RegisterDisplay display;
    std::vector<std::pair<std::int32_t, std::string>> told;
    Subscription heard = display.ValueChange.Subscribe(
        [this](std::int32_t value, const std::string& name) { told.emplace_back(value, name); });
    Subscription scrolls = display.RequestScroll.Subscribe([this](std::int16_t position) { Scroll(position); });

    void Fill(std::int16_t count)
    {
        display.CreateRegisters(count);
        for (std::int16_t i = 0; i < count; ++i) {
            display.SetRegister(i, Name(i), "45", i % 256);
            for (std::int16_t bit = 0; bit < 8; ++bit)
                display.SetBitInputStatus(i, bit, 2);
        }
        display.show();
        display.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&display));
        told.clear();
    }

    void Scroll(int position) { display.Scroll(ScrollDirection::Vertical, static_cast<std::int16_t>(position)); }
    static std::string Name(int item) { return "R" + std::to_string(item); }

    std::vector<UI_RegisterItem*> ShownRows()
    {
        std::vector<UI_RegisterItem*> rows;
        for (auto* row : display.findChildren<UI_RegisterItem*>())
            if (!row->isHidden())
                rows.push_back(row);
        std::sort(rows.begin(), rows.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return rows;
    }

    /// Every shown row stands at its place and shows the item that belongs there, in every control.
    void ExpectShown(int first, std::size_t count)
    {
        ASSERT_EQ(ShownRows().size(), count);
        int item = first;
        for (UI_RegisterItem* row : ShownRows()) {
            EXPECT_EQ(row->y(), (item - first) * display.RowHeight());
            EXPECT_EQ(row->NameCaption(), Name(item));
            EXPECT_EQ(row->value(), item % 256);
            EXPECT_EQ(row->Control(8)->accessibleName().toStdString(), "Bit 0 of " + Name(item));
            ++item;
        }
    }

    std::string Focused()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus ? focus->accessibleName().toStdString() : "";
    }

    QLineEdit& Value(int position)
    {
        return *qobject_cast<QLineEdit*>(ShownRows()[static_cast<std::size_t>(position)]->Control(0));
    }
};

TEST_F(RegisterDisplayTest, FillsOnlyTheRowsThatComeIntoView)
{
    Fill(100);
    int first = 0;
    const std::pair<int, int> steps[] = {{1, 1}, {1, 1}, {7, 7}, {8, 16}, {-1, 1}, {-7, 7}, {-9, 16}, {60, 16}, {0, 0}};
    for (const auto& [step, refilled] : steps) {
        first += step;
        Scroll(first);
        EXPECT_EQ(display.RefilledRows(), refilled) << step;
        ExpectShown(first, 16);
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(RegisterDisplayTest, TellsWhatTheUserChangedOnceAndKeepsItInTheItem)
{
    Fill(40);
    Scroll(3);
    Value(2).selectAll();
    QTest::keyClick(&Value(2), 'a');
    EXPECT_EQ(Value(2).text(), "A");
    QTest::keyClick(ShownRows()[2]->Control(8), '1');
    EXPECT_EQ(told, (std::vector<std::pair<std::int32_t, std::string>>{{0xA, "R5"}, {0xB, "R5"}}));
    Scroll(30 - 16);
    Scroll(5);
    EXPECT_EQ(ShownRows()[0]->value(), 0xB);
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(RegisterDisplayTest, TakesOnlyZeroOneAndSpaceInACellThatIsNotLocked)
{
    Fill(1);
    auto& cell = *qobject_cast<QLineEdit*>(ShownRows()[0]->Control(8));
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_1, 1},         {Qt::Key_1, 1}, {Qt::Key_Space, 0},
                                            {Qt::Key_Space, 1},     {Qt::Key_2, 1}, {Qt::Key_Delete, 1},
                                            {Qt::Key_Backspace, 1}, {Qt::Key_0, 0}};
    for (const auto& [key, value] : keys) {
        QTest::keyClick(&cell, key);
        EXPECT_EQ(ShownRows()[0]->value(), value) << key;
    }
    QTest::mouseClick(&cell, Qt::LeftButton);
    QTest::mouseDClick(&cell, Qt::LeftButton); // the second click of the two
    EXPECT_EQ(Value(0).text(), "1");
    for (std::int16_t bit = 0; bit < 8; ++bit)
        display.SetBitInputStatus(0, bit, 1);
    QTest::mouseClick(&cell, Qt::LeftButton);
    QTest::keyClicks(&cell, "0 ");
    EXPECT_EQ(cell.text(), "1");
    EXPECT_TRUE(ShownRows()[0]->ReadOnly());
}

TEST_F(RegisterDisplayTest, DoesNotUndoIntoTheRegisterShownBefore)
{
    Fill(40);
    display.SetRegisterValue(16, 0);
    QTest::keyClick(&Value(0), Qt::Key_Delete);
    QTest::keyClicks(&Value(0), "7");
    Value(0).selectAll();
    QTest::keyClicks(&Value(0), "0");
    Scroll(16);
    Value(0).undo();
    EXPECT_EQ(ShownRows()[0]->value(), 0);
}

TEST_F(RegisterDisplayTest, ReachesEveryRegisterByKeyboard)
{
    Fill(40);
    ShownRows()[0]->FocusColumn(2);
    for (int item = 1; item < 45; ++item) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        EXPECT_EQ(Focused(), "Bit 6 of R" + std::to_string(std::min(item, 39)));
    }
    ExpectShown(24, 16);
    for (const char* expected : {"R23", "R7", "R0", "R0"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp);
        EXPECT_EQ(Focused(), std::string("Bit 6 of ") + expected);
    }
    ExpectShown(0, 16);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_EQ(Focused(), "Bit 6 of R16");
}

}
}
