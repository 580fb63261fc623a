#pragma once

#include "base/Event.h"
#include "ui/advanced/HexField.h"
#include "ui/advanced/UI_LineItem.h"

#include <QWidget>

#include <array>
#include <cstdint>
#include <string>

class QLineEdit;

namespace tarvex {

class UI_RegisterItemCell;
class UI_RegisterItemLabel;
struct UI_RegisterItemLayout;

/// One row of the register display: name and group of a register, its value as a hex field and its eight bits as cells.
/// Field and cells move together. The display owns it and shows one register after the other in it.
class UI_RegisterItem : public QWidget, public UI_LineItem {
    Q_OBJECT
public:
    static constexpr std::int16_t kBits = 8;

    explicit UI_RegisterItem(QWidget* parent = nullptr);

    /// After every change of the hex field's text: value and register name.
    Event<UI_RegisterItem, std::int32_t, const std::string&> ValueChange;
    /// The user chose "Read Value" in the hex field's menu.
    Event<UI_RegisterItem> RequestReadRegister;

    /// Sets the tool tip of a bit cell; raises 0x80040001 for a bit outside the row.
    void SetBitToolTip(std::int16_t bit, const std::string& text);
    /// Shows the name as that of a register which was changed and not loaded into the board.
    void ShowMark(bool marked);
    /// Forgets the register shown before, with the user's undo steps.
    void Clear();
    /// Shows a value and no bits, all locked, until the row is cleared: for a value that has more bits than the row.
    void ShowWithoutBits(std::int32_t value);
    void Arrange(const UI_RegisterItemLayout& layout);
    /// The text box whose font and style the layout is worked out from.
    const QLineEdit& Sample() const;

    /// The control that has the focus: 0 is the value, 1 to 8 are the bits from 7 down, -1 is none of this row.
    int FocusColumn() const;
    void FocusColumn(int column);
    /// The control in a column, 0 to 8.
    QWidget* Control(int column) const;

    // What the cells report. Only an unlocked cell takes part.
    void ehBit_Click(std::int16_t bit);
    void ehBit_DblClick(std::int16_t bit);
    void ehBit_KeyPress(std::int16_t bit, char digit);
    void ehBit_TextSet(std::int16_t bit, bool isDigit);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void UI_LineItem_NameCaption(const std::string& text) override;
    std::string UI_LineItem_NameCaption() const override;
    void UI_LineItem_GroupCaption(const std::string& text) override;
    std::string UI_LineItem_GroupCaption() const override;
    void UI_LineItem_MaxValue(std::int32_t newValue) override { maximum_ = newValue; }
    std::int32_t UI_LineItem_MaxValue() const override { return maximum_; }
    void UI_LineItem_MinValue(std::int32_t newValue) override { minimum_ = newValue; }
    std::int32_t UI_LineItem_MinValue() const override { return minimum_; }
    void UI_LineItem_TabIndex(std::int16_t index) override { tabIndex_ = index; }
    std::int16_t UI_LineItem_TabIndex() const override { return tabIndex_; }
    void UI_LineItem_Visible(bool visible) override { setVisible(visible); }
    bool UI_LineItem_Visible() const override { return !isHidden(); }
    void UI_LineItem_value(std::int32_t newValue) override;
    std::int32_t UI_LineItem_value() const override;
    std::string UI_LineItem_uiType() const override;
    std::int32_t UI_LineItem_Height() const override { return height(); }
    std::int32_t UI_LineItem_Width() const override { return width(); }
    bool UI_LineItem_ReadOnly() const override { return HexField1->Locked(); }
    void UI_LineItem_SetData(const std::string& text) override { data_ = text; }
    std::string UI_LineItem_GetData() const override { return data_; }
    void UI_LineItem_SetNameToolTip(const std::string& text) override;
    void UI_LineItem_SetGroupToolTip(const std::string& text) override;
    void UI_LineItem_SetControlToolTip(const std::string& text) override;
    void UI_LineItem_SetBitStatus(std::int16_t bit, std::int16_t flags) override;

    void ehHexField1_Change();
    UI_RegisterItemCell& CellAt(std::int16_t bit) const;
    void ShowBits();
    void RebuildValue();
    void FollowCellLocks(std::uint32_t colour);
    void LockField(bool locked, std::uint32_t colour);

    UI_RegisterItemLabel* NameLabel;
    UI_RegisterItemLabel* GroupLabel;
    HexField* HexField1;
    std::array<UI_RegisterItemCell*, kBits> Bit{};
    std::int32_t maximum_ = 255;
    std::int32_t minimum_ = 0;
    std::int16_t tabIndex_ = 0;
    std::string data_;
    bool withoutBits_ = false;
    Subscription onFieldChange_;
    Subscription onReadRegister_;
};

}
