#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// One row of the register display, whatever it shows. The display drives its rows only through this.
class UI_LineItem {
public:
    virtual ~UI_LineItem() = default;

    void NameCaption(const std::string& text) { UI_LineItem_NameCaption(text); }
    std::string NameCaption() const { return UI_LineItem_NameCaption(); }
    void GroupCaption(const std::string& text) { UI_LineItem_GroupCaption(text); }
    std::string GroupCaption() const { return UI_LineItem_GroupCaption(); }
    void MaxValue(std::int32_t value) { UI_LineItem_MaxValue(value); }
    std::int32_t MaxValue() const { return UI_LineItem_MaxValue(); }
    void MinValue(std::int32_t value) { UI_LineItem_MinValue(value); }
    std::int32_t MinValue() const { return UI_LineItem_MinValue(); }
    void TabIndex(std::int16_t index) { UI_LineItem_TabIndex(index); }
    std::int16_t TabIndex() const { return UI_LineItem_TabIndex(); }
    void Visible(bool visible) { UI_LineItem_Visible(visible); }
    bool Visible() const { return UI_LineItem_Visible(); }
    /// A value outside the limits changes nothing.
    void value(std::int32_t newValue) { UI_LineItem_value(newValue); }
    std::int32_t value() const { return UI_LineItem_value(); }
    std::string uiType() const { return UI_LineItem_uiType(); }
    std::int32_t Height() const { return UI_LineItem_Height(); }
    std::int32_t Width() const { return UI_LineItem_Width(); }
    bool ReadOnly() const { return UI_LineItem_ReadOnly(); }
    /// A text that belongs to the row and is not shown.
    void SetData(const std::string& text) { UI_LineItem_SetData(text); }
    std::string GetData() const { return UI_LineItem_GetData(); }
    void SetNameToolTip(const std::string& text) { UI_LineItem_SetNameToolTip(text); }
    void SetGroupToolTip(const std::string& text) { UI_LineItem_SetGroupToolTip(text); }
    /// The tool tip of the value field.
    void SetControlToolTip(const std::string& text) { UI_LineItem_SetControlToolTip(text); }
    /// Locks and colours a bit by its access flags; raises 0x80040001 for a bit outside the row.
    void SetBitStatus(std::int16_t bit, std::int16_t flags) { UI_LineItem_SetBitStatus(bit, flags); }

private:
    virtual void UI_LineItem_NameCaption(const std::string& text) = 0;
    virtual std::string UI_LineItem_NameCaption() const = 0;
    virtual void UI_LineItem_GroupCaption(const std::string& text) = 0;
    virtual std::string UI_LineItem_GroupCaption() const = 0;
    virtual void UI_LineItem_MaxValue(std::int32_t value) = 0;
    virtual std::int32_t UI_LineItem_MaxValue() const = 0;
    virtual void UI_LineItem_MinValue(std::int32_t value) = 0;
    virtual std::int32_t UI_LineItem_MinValue() const = 0;
    virtual void UI_LineItem_TabIndex(std::int16_t index) = 0;
    virtual std::int16_t UI_LineItem_TabIndex() const = 0;
    virtual void UI_LineItem_Visible(bool visible) = 0;
    virtual bool UI_LineItem_Visible() const = 0;
    virtual void UI_LineItem_value(std::int32_t newValue) = 0;
    virtual std::int32_t UI_LineItem_value() const = 0;
    virtual std::string UI_LineItem_uiType() const = 0;
    virtual std::int32_t UI_LineItem_Height() const = 0;
    virtual std::int32_t UI_LineItem_Width() const = 0;
    virtual bool UI_LineItem_ReadOnly() const = 0;
    virtual void UI_LineItem_SetData(const std::string& text) = 0;
    virtual std::string UI_LineItem_GetData() const = 0;
    virtual void UI_LineItem_SetNameToolTip(const std::string& text) = 0;
    virtual void UI_LineItem_SetGroupToolTip(const std::string& text) = 0;
    virtual void UI_LineItem_SetControlToolTip(const std::string& text) = 0;
    virtual void UI_LineItem_SetBitStatus(std::int16_t bit, std::int16_t flags) = 0;
};

}
