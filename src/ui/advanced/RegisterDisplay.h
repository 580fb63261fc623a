#pragma once

#include "base/Event.h"
#include "ui/advanced/UI_RegisterItemLayout.h"

#include <QWidget>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class ItemObject;
struct ItemEvents;
class UI_RegisterItem;

enum class ScrollDirection : std::int16_t { Vertical = 0, Horizontal = 1 };

/// The register grid: one item for each register, of which a fixed pool of 16 rows shows those in view. It knows
/// nothing of registers or devices; its owner fills it by index and name and hears from it through two events.
class RegisterDisplay : public QWidget {
    Q_OBJECT
public:
    explicit RegisterDisplay(QWidget* parent = nullptr);
    ~RegisterDisplay() override;

    /// The user changed a row's value (or a visible row took a new one): value and register name.
    Event<RegisterDisplay, std::int32_t, const std::string&> ValueChange;
    /// The user asked to read the register of this name.
    Event<RegisterDisplay, const std::string&> RequestReadRegisterValue;
    /// The keyboard wants another item in view than those shown; the position to scroll to. Arrow and page keys in the
    /// rows end here, so that every register can be reached without the mouse.
    Event<RegisterDisplay, std::int16_t> RequestScroll;

    /// Scrolls to the top and makes room for this many empty items; raises 0x80040001 for 0 or less.
    void CreateRegisters(std::int16_t count);
    /// Raises 0x80040001 for an index outside the items, as do the next five.
    void SetRegister(std::int16_t index, const std::string& name, const std::string& group, std::int32_t value);
    void SetRegisterValue(std::int16_t index, std::int32_t value);
    void SetRegisterPrompt(std::int16_t index, const std::string& text);
    /// Marks the register as changed and not loaded into the board.
    void SetRegisterMark(std::int16_t index, bool marked);
    void SetBitInputStatus(std::int16_t index, std::int16_t bit, std::int16_t flags);
    void SetBitPrompt(std::int16_t index, std::int16_t bit, const std::string& text);
    /// Locks the whole row and leaves its bits empty: for a register that is wider than the eight bits of a row.
    void SetRegisterTooWide(std::int16_t index);
    /// Moves the item at the position into the top row; raises 0x80040002 for the horizontal direction.
    void Scroll(ScrollDirection direction, std::int16_t position);

    std::int16_t MaxDisplayItems() const;
    /// Rows in use; raises 0x80040001 for 0 or less, takes 16 for more.
    void MaxDisplayItems(std::int16_t count);
    std::int16_t ItemCount() const;
    /// Pixels.
    int Height() const;
    int Width() const;
    int RowHeight() const;
    /// Left edge in pixels of a column within the display, so that its owner can put headings over the columns.
    int NameColumnLeft() const;
    int GroupColumnLeft() const;
    int ValueColumnLeft() const;
    int BitColumnLeft() const;

    int BitColumnWidth() const;
    /// How many rows the last scroll filled again; the others only moved.
    int RefilledRows() const { return refilledRows_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    static constexpr int kRows = 16;

    void CheckItemIndex(int index) const;
    void CheckDisplayItemIndex(int position) const;
    ItemObject& ItemAt(std::int16_t index);
    bool InView(int item) const;
    /// The row that shows the item: the pool is a ring, so that a scroll moves the rows whose items stay in view.
    UI_RegisterItem& RowOf(int item) const;
    UI_RegisterItem& RowAtPosition(int position) const;
    int ItemOfRow(int row) const;

    void FillRow(int item);
    void FillRowsFrom(int firstPosition, int lastPosition);
    void PlaceRows();
    void LinkTabOrder();
    void Relayout();
    void GoToItem(int item, int column);
    void AskToScroll(int position);

    void SubscribeToItems();
    void SubscribeToRow(int row);
    void ehItemObject_ValueChanged(std::int16_t index, std::int32_t value);
    void ehItemObject_BitRestrictionChanged(std::int16_t bit, std::int16_t flags, std::int16_t index);
    void ehItemObject_BitPromptChanged(std::int16_t bit, const std::string& text, std::int16_t index);
    void ehItemObject_NameTipChanged(std::int16_t index, const std::string& text);
    void ehRow_ValueChange(int row, std::int32_t value);

    std::unique_ptr<ItemEvents> itemEvents_;
    std::vector<std::unique_ptr<ItemObject>> items_;
    std::array<UI_RegisterItem*, kRows> rows_{};
    UI_RegisterItemLayout layout_;
    int rowsInUse_ = kRows;
    int first_ = 0;
    int refilledRows_ = 0;
    int wheelAngle_ = 0;
    bool scrolling_ = false;
    bool echoing_ = false;
    std::vector<Subscription> subscriptions_;
};

}
