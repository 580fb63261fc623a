#include "ui/advanced/RegisterDisplay.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "ui/advanced/ItemObject.h"
#include "ui/advanced/UI_RegisterItem.h"

#include <QEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int32_t kErrIndex = ObjectError(1);
constexpr std::int32_t kErrHorizontal = ObjectError(2);

[[noreturn]] void RaiseRange(const char* operation, const char* array, int index, int count)
{
    Raise(kErrIndex, operation,
          std::string(array) + " array index of " + std::to_string(index) + " is out of range: 0 to " +
              std::to_string(count));
}

}

RegisterDisplay::RegisterDisplay(QWidget* parent) : QWidget(parent), itemEvents_(std::make_unique<ItemEvents>())
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAutoFillBackground(true); // lets a scroll by a few rows move the pixels instead of painting them again
    for (int row = 0; row < kRows; ++row) {
        rows_[static_cast<std::size_t>(row)] = new UI_RegisterItem(this);
        rows_[static_cast<std::size_t>(row)]->setObjectName("UI_RegisterItem_" + QString::number(row));
        SubscribeToRow(row);
    }
    SubscribeToItems();
    Relayout();
    FillRowsFrom(0, kRows);
}

RegisterDisplay::~RegisterDisplay() = default;

void RegisterDisplay::SubscribeToItems()
{
    subscriptions_.push_back(itemEvents_->ValueChanged.Subscribe(
        [this](std::int16_t index, std::int32_t value) { ehItemObject_ValueChanged(index, value); }));
    subscriptions_.push_back(
        itemEvents_->BitRestrictionChanged.Subscribe([this](std::int16_t bit, std::int16_t flags, std::int16_t index) {
            ehItemObject_BitRestrictionChanged(bit, flags, index);
        }));
    subscriptions_.push_back(
        itemEvents_->BitPromptChanged.Subscribe([this](std::int16_t bit, const std::string& text, std::int16_t index) {
            ehItemObject_BitPromptChanged(bit, text, index);
        }));
    subscriptions_.push_back(itemEvents_->NameTipChanged.Subscribe(
        [this](std::int16_t index, const std::string& text) { ehItemObject_NameTipChanged(index, text); }));
}

void RegisterDisplay::SubscribeToRow(int row)
{
    UI_RegisterItem& control = *rows_[static_cast<std::size_t>(row)];
    subscriptions_.push_back(control.ValueChange.Subscribe(
        [this, row](std::int32_t value, const std::string&) { ehRow_ValueChange(row, value); }));
    subscriptions_.push_back(control.RequestReadRegister.Subscribe(
        [this, &control] { RequestReadRegisterValue.Raise(control.NameCaption()); }));
}

void RegisterDisplay::CreateRegisters(std::int16_t count)
{
    Scroll(ScrollDirection::Vertical, 0);
    MaxDisplayItems(count);
    items_.clear();
    items_.resize(static_cast<std::size_t>(count));
    FillRowsFrom(0, rowsInUse_);
}

void RegisterDisplay::SetRegister(std::int16_t index, const std::string& name, const std::string& group,
                                  std::int32_t value)
{
    if (index < 0 || index >= ItemCount())
        Raise(kErrIndex, "RegisterDisplay::SetRegister",
              "Index of " + std::to_string(index) +
                  " is out of range.  Max itemCount = " + std::to_string(ItemCount()));
    auto& item = items_[static_cast<std::size_t>(index)];
    if (!item)
        item = std::make_unique<ItemObject>(*itemEvents_);
    if (item->UI_Type() == kRegisterRowType)
        item->Update(name, group, value);
    else
        item->Init(index, name, group, value, 255, 0, kRegisterRowType);
    if (InView(index))
        FillRow(index);
}

void RegisterDisplay::SetRegisterValue(std::int16_t index, std::int32_t value) { ItemAt(index).value(value); }

void RegisterDisplay::SetRegisterPrompt(std::int16_t index, const std::string& text)
{
    ItemAt(index).NameToolTip(text);
}

void RegisterDisplay::SetRegisterMark(std::int16_t index, bool marked)
{
    ItemAt(index).IsMarked(marked);
    if (InView(index))
        RowOf(index).ShowMark(marked);
}

void RegisterDisplay::SetBitInputStatus(std::int16_t index, std::int16_t bit, std::int16_t flags)
{
    ItemAt(index).SetRestrictedBit(bit, flags);
}

void RegisterDisplay::SetBitPrompt(std::int16_t index, std::int16_t bit, const std::string& text)
{
    ItemAt(index).SetBitPrompt(bit, text);
}

void RegisterDisplay::SetRegisterTooWide(std::int16_t index)
{
    ItemAt(index).SetTooWide();
    if (InView(index))
        FillRow(index);
}

void RegisterDisplay::Scroll(ScrollDirection direction, std::int16_t position)
{
    if (direction != ScrollDirection::Vertical)
        Raise(kErrHorizontal, "RegisterDisplay::Scroll", "Horizontal scrolling not implemented");
    if (position != 0)
        CheckItemIndex(position);
    const int change = position - first_;
    first_ = position;
    if (std::abs(change) >= rowsInUse_ / 2)
        return FillRowsFrom(0, rowsInUse_);
    scroll(0, -change * layout_.rowHeight); // moves the pixels of the rows that stay at once
    if (change > 0)
        FillRowsFrom(rowsInUse_ - change, rowsInUse_);
    else
        FillRowsFrom(0, -change);
}

void RegisterDisplay::FillRowsFrom(int firstPosition, int lastPosition)
{
    for (int position = firstPosition; position < lastPosition; ++position)
        FillRow(first_ + position);
    refilledRows_ = lastPosition - firstPosition;
    PlaceRows();
}

void RegisterDisplay::FillRow(int item)
{
    const QScopedValueRollback<bool> scrolling(scrolling_, true);
    UI_RegisterItem& row = RowOf(item);
    const ItemObject* source = item < ItemCount() ? items_[static_cast<std::size_t>(item)].get() : nullptr;
    row.Clear();
    row.NameCaption(source ? source->Name() : "");
    row.GroupCaption(source ? source->Group() : "");
    row.SetNameToolTip(source ? source->NameToolTip() : "");
    row.SetGroupToolTip(source ? source->GroupToolTip() : "");
    row.ShowMark(source && source->IsMarked());
    if (!source || source->IsTooWide()) {
        row.ShowWithoutBits(source ? source->value() : 0);
        return;
    }
    row.MaxValue(source->MaxValue());
    row.MinValue(source->MinValue());
    row.value(source->value());
    for (std::int16_t bit = 0; bit < UI_RegisterItem::kBits; ++bit) {
        row.SetBitToolTip(bit, source->GetBitPrompt(bit));
        row.SetBitStatus(bit, source->GetRestrictedBit(bit));
    }
}

void RegisterDisplay::PlaceRows()
{
    for (int position = 0; position < kRows; ++position) {
        UI_RegisterItem& row =
            position < rowsInUse_ ? RowAtPosition(position) : *rows_[static_cast<std::size_t>(position)];
        row.TabIndex(static_cast<std::int16_t>(position));
        row.move(0, position * layout_.rowHeight);
        row.Visible(position < rowsInUse_ && (items_.empty() || first_ + position < ItemCount()));
    }
    LinkTabOrder();
}

void RegisterDisplay::LinkTabOrder()
{
    QWidget* previous = RowAtPosition(0).Control(0);
    for (int position = 0; position < rowsInUse_; ++position)
        for (int column = 0; column <= UI_RegisterItem::kBits; ++column) {
            QWidget* control = RowAtPosition(position).Control(column);
            if (control != previous && previous->nextInFocusChain() != control)
                setTabOrder(previous, control);
            previous = control;
        }
}

void RegisterDisplay::Relayout()
{
    layout_ = UI_RegisterItemLayout::For(rows_[0]->Sample());
    for (UI_RegisterItem* row : rows_)
        row->Arrange(layout_);
    PlaceRows();
    resize(sizeHint());
    updateGeometry();
}

bool RegisterDisplay::InView(int item) const { return item >= first_ && item < first_ + rowsInUse_; }

UI_RegisterItem& RegisterDisplay::RowOf(int item) const { return *rows_[static_cast<std::size_t>(item % rowsInUse_)]; }

UI_RegisterItem& RegisterDisplay::RowAtPosition(int position) const
{
    CheckDisplayItemIndex(position);
    return RowOf(first_ + position);
}

int RegisterDisplay::ItemOfRow(int row) const { return first_ + (row - first_ % rowsInUse_ + rowsInUse_) % rowsInUse_; }

void RegisterDisplay::CheckItemIndex(int index) const
{
    if (index < 0 || index >= ItemCount())
        RaiseRange("RegisterDisplay::CheckItemIndex", "ItemObject", index, ItemCount());
}

void RegisterDisplay::CheckDisplayItemIndex(int position) const
{
    if (position < 0 || position >= rowsInUse_)
        RaiseRange("RegisterDisplay::CheckDisplayItemIndex", "UI_LineItem", position, rowsInUse_);
}

ItemObject& RegisterDisplay::ItemAt(std::int16_t index)
{
    CheckItemIndex(index);
    auto& item = items_[static_cast<std::size_t>(index)];
    if (!item)
        RaiseRuntime(kErrInvalidCall, "RegisterDisplay::ItemAt"); // no register was set there yet
    return *item;
}

std::int16_t RegisterDisplay::MaxDisplayItems() const { return static_cast<std::int16_t>(rowsInUse_); }

void RegisterDisplay::MaxDisplayItems(std::int16_t count)
{
    if (count <= 0)
        Raise(kErrIndex, "RegisterDisplay::MaxDisplayItems", "UI_LineItem array index of 0 is not allowed.");
    rowsInUse_ = std::min<int>(count, kRows);
    FillRowsFrom(0, rowsInUse_);
    resize(sizeHint());
    updateGeometry();
}

std::int16_t RegisterDisplay::ItemCount() const { return static_cast<std::int16_t>(items_.size()); }

int RegisterDisplay::Height() const { return height(); }

int RegisterDisplay::Width() const { return width(); }

int RegisterDisplay::RowHeight() const { return layout_.rowHeight; }

int RegisterDisplay::NameColumnLeft() const { return layout_.nameLeft; }

int RegisterDisplay::GroupColumnLeft() const { return layout_.groupLeft; }

int RegisterDisplay::ValueColumnLeft() const { return layout_.valueLeft; }

int RegisterDisplay::BitColumnLeft() const { return layout_.bitLeft; }

int RegisterDisplay::BitColumnWidth() const { return UI_RegisterItem::kBits * layout_.cellWidth; }

QSize RegisterDisplay::sizeHint() const { return {layout_.width, rowsInUse_ * layout_.rowHeight}; }

void RegisterDisplay::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Relayout();
}

void RegisterDisplay::ehItemObject_ValueChanged(std::int16_t index, std::int32_t value)
{
    if (!InView(index))
        return;
    if (ItemAt(index).IsTooWide())
        RowOf(index).ShowWithoutBits(value);
    else
        RowOf(index).value(value);
}

void RegisterDisplay::ehItemObject_BitRestrictionChanged(std::int16_t bit, std::int16_t flags, std::int16_t index)
{
    if (InView(index) && !ItemAt(index).IsTooWide())
        RowOf(index).SetBitStatus(bit, flags);
}

void RegisterDisplay::ehItemObject_BitPromptChanged(std::int16_t bit, const std::string& text, std::int16_t index)
{
    if (InView(index) && !ItemAt(index).IsTooWide())
        RowOf(index).SetBitToolTip(bit, text);
}

void RegisterDisplay::ehItemObject_NameTipChanged(std::int16_t index, const std::string& text)
{
    if (InView(index))
        RowOf(index).SetNameToolTip(text);
}

void RegisterDisplay::ehRow_ValueChange(int row, std::int32_t value)
{
    const int index = ItemOfRow(row);
    if (scrolling_ || echoing_ || index >= ItemCount() || !items_[static_cast<std::size_t>(index)])
        return;
    ItemObject& item = *items_[static_cast<std::size_t>(index)];
    {
        // The item tells its row, which may write the same value another way: that is no change to report.
        const QScopedValueRollback<bool> echoing(echoing_, true);
        item.value(value);
    }
    const std::string name = item.Name(); // a handler may make the registers anew
    ValueChange.Raise(value, name);
}

}
