#include "ui/advanced/HexField.h"

#include "ui/advanced/HexFieldRules.h"
#include "ui/advanced/HexFieldTextBox.h"
#include "ui/advanced/UI_RegisterItemRules.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>

namespace tarvex {

HexField::HexField(QWidget* parent) : QWidget(parent)
{
    txtInput = new HexFieldTextBox(
        [this](const std::string& text) { return IsAcceptableHex(text, minimum_, maximum_); }, this);
    txtInput->setObjectName("txtInput");
    setFocusProxy(txtInput);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    FollowTextBoxHeight();
    BuildMenu();
    QObject::connect(txtInput, &QLineEdit::textChanged, this, [this] {
        if (!setting_)
            Guarded([this] { UserChangedText(); });
    });
}

HexField::~HexField()
{
    delete txtInput; // it asks its judge once more when it loses the focus
}

void HexField::BuildMenu()
{
    auto* menu = new QMenu(this);
    menu->setObjectName("mnuPopup");
    const auto add = [&](const char* name, const char* caption, auto body) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(name);
        QObject::connect(action, &QAction::triggered, this, [body] { Guarded(body); });
    };
    add("mnuPopupCut", "Cu&t", [this] { txtInput->SendKey(Qt::Key_X, Qt::ControlModifier); });
    add("mnuPopupCopy", "&Copy", [this] { txtInput->SendKey(Qt::Key_C, Qt::ControlModifier); });
    add("mnuPopupPaste", "&Paste", [this] { txtInput->SendKey(Qt::Key_V, Qt::ControlModifier); });
    add("mnuPopupDelete", "&Delete", [this] {
        if (txtInput->hasSelectedText())
            txtInput->SendKey(Qt::Key_Delete, Qt::NoModifier);
    });
    menu->addSeparator()->setObjectName("mnuPopupSep");
    add("mnuPopupSelectAll", "Select &All", [this] {
        txtInput->selectAll();
        txtInput->setFocus(Qt::PopupFocusReason);
    });
    add("mnuReadSingleRegister", "Read Value", [this] { ReadRegister.Raise(); });
    txtInput->SetMenu(menu);
}

void HexField::MinValue(std::int32_t value)
{
    CheckMinValue(value);
    minimum_ = value;
    PropertyChanged.Raise("MinValue");
}

void HexField::MaxValue(std::int32_t value)
{
    maximum_ = value;
    PropertyChanged.Raise("MaxValue");
}

std::string HexField::HexText() const { return FromQt(txtInput->text()); }

void HexField::HexText(const std::string& text)
{
    if (text.empty())
        return;
    const std::string digits(WithoutHexPrefix(text));
    textError_.reset();
    try {
        CheckHexText(digits, minimum_, maximum_);
    } catch (const Error& error) {
        textError_ = error;
    }
    const QString shown = ToQt(digits);
    const bool changes = shown != txtInput->text();
    if (changes)
        PutText(shown);
    PropertyChanged.Raise("Text");
    if (changes)
        RaiseChange();
}

QString HexField::Text() const { return txtInput->text(); }

void HexField::Text(const QString& text) { HexText(FromQt(text)); }

void HexField::PutText(const QString& text)
{
    const QScopedValueRollback<bool> setting(setting_, true);
    const auto right = txtInput->text().size() - txtInput->cursorPosition();
    txtInput->setText(text);
    txtInput->setCursorPosition(std::max(0, static_cast<int>(text.size() - right)));
    lastText_ = text;
}

void HexField::UserChangedText()
{
    if (!txtInput->Accepts(txtInput->text())) { // the box does not ask its validator in every case
        PutText(lastText_);
        return;
    }
    lastText_ = txtInput->text();
    RaiseChange();
}

void HexField::RaiseChange()
{
    if (txtInput->text().isEmpty()) {
        PutText("0");
        Change.Raise();
    }
    Change.Raise();
}

QFont HexField::Font() const { return txtInput->font(); }

void HexField::Font(const QFont& font)
{
    txtInput->setFont(font);
    FollowTextBoxHeight();
    PropertyChanged.Raise("Font");
}

bool HexField::Locked() const { return txtInput->isReadOnly(); }

void HexField::Locked(bool locked)
{
    if (locked != txtInput->isReadOnly())
        txtInput->setReadOnly(locked);
    PropertyChanged.Raise("Locked");
}

QColor HexField::BackColor() const { return txtInput->palette().color(QPalette::Base); }

void HexField::BackColor(const QColor& colour)
{
    if (txtInput->testAttribute(Qt::WA_SetPalette) && colour == BackColor())
        return;
    QPalette palette;
    palette.setColor(QPalette::Base, colour);
    palette.setColor(QPalette::Text, QColor::fromRgb(TextColourOn(colour.rgb())));
    txtInput->setPalette(palette);
}

void HexField::AccessibleName(const QString& name) { txtInput->setAccessibleName(name); }

void HexField::ForgetEdits() { PutText(txtInput->text()); }

QSize HexField::sizeHint() const { return txtInput->sizeHint(); }

void HexField::FollowTextBoxHeight()
{
    setFixedHeight(txtInput->sizeHint().height());
    txtInput->setGeometry(0, 0, width(), height());
}

void HexField::resizeEvent(QResizeEvent*) { txtInput->setGeometry(0, 0, width(), txtInput->sizeHint().height()); }

void HexField::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FollowTextBoxHeight();
}

}
