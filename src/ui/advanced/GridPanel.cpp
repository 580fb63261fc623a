#include "ui/advanced/GridPanel.h"

#include "base/Numbers.h"
#include "config/IConfigController.h"
#include "model/RegisterObject.h"
#include "ui/advanced/RegisterDisplay.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QStackedLayout>

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int16_t kBitsOfRow = 8;
constexpr int kHint = 0;
constexpr int kGrid = 1;

/// Paints once instead of with every row.
class UpdatesOff {
public:
    explicit UpdatesOff(QWidget& widget) : widget_(widget) { widget_.setUpdatesEnabled(false); }
    ~UpdatesOff() { widget_.setUpdatesEnabled(true); }
    UpdatesOff(const UpdatesOff&) = delete;
    UpdatesOff& operator=(const UpdatesOff&) = delete;

private:
    QWidget& widget_;
};

std::string TipOf(const RegisterObject& shown)
{
    if (shown.MaxBits() <= kBitsOfRow)
        return shown.Description();
    return shown.Description() + (shown.Description().empty() ? "" : "\n") + "Value: 0x" + ToHex(shown.value());
}

}

GridPanel::GridPanel(QWidget* parent) : QWidget(parent)
{
    pages_ = new QStackedLayout(this);
    hint_ = new QLabel("Choose a board on the Product menu.", this);
    hint_->setAlignment(Qt::AlignCenter);
    NameControl(*hint_, "Hint");
    auto* gridPage = new QWidget(this);
    RegisterDisplay1 = new RegisterDisplay(gridPage);
    NameControl(*RegisterDisplay1, "RegisterDisplay1", "Registers");
    VScroll1 = new QScrollBar(Qt::Vertical, gridPage);
    NameControl(*VScroll1, "VScroll1", "First register shown");
    auto* layout = new QGridLayout(gridPage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(2);
    layout->addWidget(BuildHeadings(), 0, 0);
    layout->addWidget(RegisterDisplay1, 1, 0, Qt::AlignLeft);
    layout->addWidget(VScroll1, 1, 1);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(0, 1);
    pages_->addWidget(hint_);
    pages_->addWidget(gridPage);
    subscriptions_.push_back(RegisterDisplay1->ValueChange.Subscribe(
        [this](std::int32_t value, const std::string& name) { Edited.Raise(name, value); }));
    subscriptions_.push_back(RegisterDisplay1->RequestReadRegisterValue.Subscribe(
        [this](const std::string& name) { ReadRequested.Raise(name); }));
    subscriptions_.push_back(
        RegisterDisplay1->RequestScroll.Subscribe([this](std::int16_t position) { VScroll1->setValue(position); }));
    QObject::connect(VScroll1, &QScrollBar::valueChanged, this, [this](int position) {
        Guarded([&] { RegisterDisplay1->Scroll(ScrollDirection::Vertical, static_cast<std::int16_t>(position)); });
    });
}

QWidget* GridPanel::BuildHeadings()
{
    headings_ = new QWidget(this);
    const auto add = [this](const char* name, const QString& caption) {
        auto* heading = new QLabel(caption, headings_);
        NameControl(*heading, name);
        return heading;
    };
    Label3 = add("Label3", "Address");
    Label4 = add("Label4", "Name");
    Label5 = add("Label5", "Bit(s) 7:0");
    return headings_;
}

void GridPanel::PlaceHeadings()
{
    const int height = Label3->sizeHint().height();
    headings_->setFixedHeight(height);
    const auto place = [height](QLabel& heading, int left) {
        heading.setGeometry(left, 0, heading.sizeHint().width(), height);
    };
    place(*Label3, RegisterDisplay1->GroupColumnLeft());
    place(*Label4, RegisterDisplay1->NameColumnLeft());
    place(*Label5, RegisterDisplay1->BitColumnLeft());
}

void GridPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceHeadings();
}

void GridPanel::Fill(IConfigController& controller)
{
    const std::int16_t count = controller.GetI2CRegisterCount();
    pages_->setCurrentIndex(count > 0 ? kGrid : kHint);
    if (count == 0) {
        hint_->setText("This board has no registers to show.");
        return;
    }
    const UpdatesOff updatesOff(*this);
    const QSignalBlocker quiet(VScroll1);
    VScroll1->setValue(0);
    RegisterDisplay1->CreateRegisters(count);
    for (std::int16_t i = 0; i < count; ++i)
        FillRow(i, *controller.GetI2CRegister(i));
    SetScrollRange();
    PlaceHeadings();
}

void GridPanel::FillRow(std::int16_t position, const RegisterObject& shown)
{
    const bool tooWide = shown.MaxBits() > kBitsOfRow;
    RegisterDisplay1->SetRegister(position, shown.Name(), ToHex(shown.Address()), shown.value());
    RegisterDisplay1->SetRegisterPrompt(position, TipOf(shown));
    RegisterDisplay1->SetRegisterMark(position, shown.IsDirty());
    if (tooWide) {
        RegisterDisplay1->SetRegisterTooWide(position);
        return;
    }
    for (std::int16_t bit = 0; bit < shown.MaxBits(); ++bit) {
        RegisterDisplay1->SetBitInputStatus(position, bit, shown.GetBitFlags(bit));
        RegisterDisplay1->SetBitPrompt(position, bit, shown.GetBitDescription(bit));
    }
}

void GridPanel::ShowRowValue(std::int16_t position, const RegisterObject& shown)
{
    if (shown.MaxBits() > kBitsOfRow)
        RegisterDisplay1->SetRegisterPrompt(position, TipOf(shown));
    RegisterDisplay1->SetRegisterValue(position, shown.value());
    RegisterDisplay1->SetRegisterMark(position, shown.IsDirty());
}

void GridPanel::ShowValue(IConfigController& controller, std::int16_t position)
{
    ShowRowValue(position, *controller.GetI2CRegister(position));
}

void GridPanel::ShowAllValues(IConfigController& controller)
{
    const UpdatesOff updatesOff(*this);
    const std::int16_t count = std::min(controller.GetI2CRegisterCount(), RegisterDisplay1->ItemCount());
    for (std::int16_t i = 0; i < count; ++i)
        ShowValue(controller, i);
}

void GridPanel::ShowMarks(IConfigController& controller)
{
    const std::int16_t count = std::min(controller.GetI2CRegisterCount(), RegisterDisplay1->ItemCount());
    for (std::int16_t i = 0; i < count; ++i)
        RegisterDisplay1->SetRegisterMark(i, controller.GetI2CRegister(i)->IsDirty());
}

void GridPanel::SetScrollRange()
{
    const int rows = RegisterDisplay1->MaxDisplayItems();
    const int hidden = RegisterDisplay1->ItemCount() - rows;
    VScroll1->setRange(0, std::max(0, hidden));
    VScroll1->setPageStep(rows);
    VScroll1->setVisible(hidden > 0);
}

}
