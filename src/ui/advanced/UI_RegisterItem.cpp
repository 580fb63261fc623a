#include "ui/advanced/UI_RegisterItem.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "model/RegisterObject.h"
#include "ui/advanced/ItemObject.h"
#include "ui/advanced/UI_RegisterItemCell.h"
#include "ui/advanced/UI_RegisterItemLabel.h"
#include "ui/advanced/UI_RegisterItemLayout.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QKeyEvent>

#include <algorithm>

namespace tarvex {

UI_RegisterItem::UI_RegisterItem(QWidget* parent)
    : QWidget(parent), NameLabel(new UI_RegisterItemLabel(this)), GroupLabel(new UI_RegisterItemLabel(this)),
      HexField1(new HexField(this))
{
    NameLabel->setObjectName("NameLabel");
    GroupLabel->setObjectName("GroupLabel");
    HexField1->setObjectName("HexField1");
    for (std::int16_t bit = kBits - 1; bit >= 0; --bit)
        Bit[static_cast<std::size_t>(bit)] = new UI_RegisterItemCell(bit, *this);
    HexField1->MaxValue(255);
    HexField1->MinValue(0);
    HexField1->HexText("00");
    for (std::int16_t bit = 0; bit < kBits; ++bit)
        SetBitStatus(bit, static_cast<std::int16_t>(AccessFlag::ReadWrite));
    ShowBits();
    onFieldChange_ = HexField1->Change.Subscribe([this] { ehHexField1_Change(); });
    onReadRegister_ = HexField1->ReadRegister.Subscribe([this] { RequestReadRegister.Raise(); });
}

void UI_RegisterItem::Clear()
{
    withoutBits_ = false;
    HexField1->ForgetEdits();
    ShowBits();
}

void UI_RegisterItem::ShowWithoutBits(std::int32_t value)
{
    withoutBits_ = true;
    const BitLook reserved = LookOfBit(static_cast<std::int16_t>(AccessFlag::Reserved));
    for (UI_RegisterItemCell* cell : Bit) {
        cell->Show(' ');
        cell->Look({reserved.colour, true, ""});
        cell->Prompt("");
    }
    LockField(true, reserved.colour);
    HexField1->HexText(ToHex(value));
}

void UI_RegisterItem::ShowMark(bool marked)
{
    if (!NameLabel->Mark(marked))
        return;
    setAccessibleDescription(marked ? kChanged : "");
    Control(0)->setAccessibleDescription(accessibleDescription());
}

void UI_RegisterItem::Arrange(const UI_RegisterItemLayout& layout)
{
    resize(layout.width, layout.rowHeight);
    NameLabel->setGeometry(layout.nameLeft, 0, layout.nameWidth, layout.fieldHeight);
    GroupLabel->setGeometry(layout.groupLeft, 0, layout.groupWidth, layout.fieldHeight);
    HexField1->setGeometry(layout.valueLeft, 0, layout.valueWidth, layout.fieldHeight);
    int left = layout.bitLeft + kBits * layout.cellWidth;
    for (UI_RegisterItemCell* cell : Bit) {
        left -= layout.cellWidth;
        cell->setGeometry(left, 0, layout.cellWidth, layout.fieldHeight);
    }
}

const QLineEdit& UI_RegisterItem::Sample() const { return *Bit[0]; }

QWidget* UI_RegisterItem::Control(int column) const
{
    return column == 0 ? HexField1->focusProxy() : Bit[static_cast<std::size_t>(kBits - column)];
}

int UI_RegisterItem::FocusColumn() const
{
    for (int column = 0; column <= kBits; ++column)
        if (Control(column)->hasFocus())
            return column;
    return -1;
}

void UI_RegisterItem::FocusColumn(int column)
{
    Control(std::clamp<int>(column, 0, kBits))->setFocus(Qt::TabFocusReason);
}

void UI_RegisterItem::keyPressEvent(QKeyEvent* event)
{
    const int step = event->key() == Qt::Key_Left ? -1 : event->key() == Qt::Key_Right ? 1 : 0;
    const int column = FocusColumn();
    if (step == 0 || column < 1 || event->modifiers() & ~Qt::KeypadModifier)
        event->ignore();
    else
        FocusColumn(column + step);
}

UI_RegisterItemCell& UI_RegisterItem::CellAt(std::int16_t bit) const
{
    if (bit < 0 || bit >= kBits)
        Raise(ObjectError(1), "UI_RegisterItem::SetBitStatus",
              "Bit index of " + std::to_string(bit) + " out of range. Range is 0 to 7");
    return *Bit[static_cast<std::size_t>(bit)];
}

void UI_RegisterItem::ehBit_Click(std::int16_t bit)
{
    UI_RegisterItemCell& cell = CellAt(bit);
    const char digit = cell.Digit();
    if (cell.Locked())
        return;
    cell.Show(digit);
    if (digit == '0' || digit == '1')
        ehBit_KeyPress(bit, digit == '0' ? '1' : '0');
}

void UI_RegisterItem::ehBit_DblClick(std::int16_t bit)
{
    UI_RegisterItemCell& cell = CellAt(bit);
    if (cell.Locked())
        return;
    cell.deselect();
    RebuildValue();
}

void UI_RegisterItem::ehBit_KeyPress(std::int16_t bit, char digit)
{
    CellAt(bit).Show(digit);
    RebuildValue();
}

void UI_RegisterItem::ehBit_TextSet(std::int16_t bit, bool isDigit)
{
    if (isDigit && !CellAt(bit).Locked())
        RebuildValue();
    else
        ShowBits();
}

void UI_RegisterItem::RebuildValue()
{
    std::string digits;
    for (auto cell = Bit.rbegin(); cell != Bit.rend(); ++cell)
        digits += (*cell)->Digit();
    HexField1->HexText(HexTextOfDigits(digits));
}

void UI_RegisterItem::ShowBits()
{
    const auto bits = BitsOfHexText(HexField1->HexText());
    if (!bits || withoutBits_)
        return;
    for (std::size_t i = 0; i < Bit.size(); ++i)
        Bit[i]->Show((*bits)[i] ? '1' : '0');
}

void UI_RegisterItem::ehHexField1_Change()
{
    const auto value = TryParseHex(HexField1->HexText());
    if (!value)
        return;
    ShowBits();
    ValueChange.Raise(*value, NameCaption());
}

void UI_RegisterItem::SetBitToolTip(std::int16_t bit, const std::string& text) { CellAt(bit).Prompt(text); }

void UI_RegisterItem::UI_LineItem_NameCaption(const std::string& text)
{
    const QString name = ToQt(text);
    if (NameLabel->text() == name && accessibleName() == name)
        return;
    NameLabel->setText(name);
    setAccessibleName(name);
    HexField1->AccessibleName("Value of " + name);
    for (std::int16_t bit = 0; bit < kBits; ++bit)
        CellAt(bit).setAccessibleName("Bit " + QString::number(bit) + " of " + name);
}

std::string UI_RegisterItem::UI_LineItem_NameCaption() const { return FromQt(NameLabel->text()); }

void UI_RegisterItem::UI_LineItem_GroupCaption(const std::string& text) { GroupLabel->setText(ToQt(text)); }

std::string UI_RegisterItem::UI_LineItem_GroupCaption() const { return FromQt(GroupLabel->text()); }

void UI_RegisterItem::UI_LineItem_value(std::int32_t newValue)
{
    if (newValue >= minimum_ && newValue <= maximum_)
        HexField1->HexText(ToHex(newValue));
}

std::int32_t UI_RegisterItem::UI_LineItem_value() const
{
    return ParseHex(HexField1->HexText(), "UI_RegisterItem::value");
}

std::string UI_RegisterItem::UI_LineItem_uiType() const { return std::string(kRegisterRowType); }

void UI_RegisterItem::UI_LineItem_SetNameToolTip(const std::string& text) { NameLabel->setToolTip(ToQt(text)); }

void UI_RegisterItem::UI_LineItem_SetGroupToolTip(const std::string& text) { GroupLabel->setToolTip(ToQt(text)); }

void UI_RegisterItem::UI_LineItem_SetControlToolTip(const std::string& text) { HexField1->setToolTip(ToQt(text)); }

void UI_RegisterItem::UI_LineItem_SetBitStatus(std::int16_t bit, std::int16_t flags)
{
    const BitLook look = LookOfBit(flags);
    CellAt(bit).Look(look);
    FollowCellLocks(look.colour);
}

void UI_RegisterItem::FollowCellLocks(std::uint32_t colour)
{
    const bool locked = std::all_of(Bit.begin(), Bit.end(), [](const auto* cell) { return cell->Locked(); });
    const BitLook open = LookOfBit(static_cast<std::int16_t>(AccessFlag::ReadWrite));
    LockField(locked, locked ? colour : open.colour);
}

void UI_RegisterItem::LockField(bool locked, std::uint32_t colour)
{
    HexField1->Locked(locked);
    HexField1->BackColor(QColor::fromRgb(colour));
}

}
