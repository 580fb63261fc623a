#pragma once

#include "base/Error.h"
#include "base/Event.h"

#include <QColor>
#include <QFont>
#include <QWidget>

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

class HexFieldTextBox;

/// An entry field for one hexadecimal number within limits. Whatever way an edit comes (keys, paste, drop, input
/// method, undo), one that would leave anything else is refused silently. Its menu also asks the owner to read the
/// value from the board. The persisted properties are Qt properties, so that a form can store them.
class HexField : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int MinValue READ MinValue WRITE MinValue)
    Q_PROPERTY(int MaxValue READ MaxValue WRITE MaxValue)
    Q_PROPERTY(QString Text READ Text WRITE Text)
    Q_PROPERTY(QFont Font READ Font WRITE Font)
    Q_PROPERTY(bool Locked READ Locked WRITE Locked)

public:
    explicit HexField(QWidget* parent = nullptr);
    ~HexField() override;

    /// After every change of the text, typed or set.
    Event<HexField> Change;
    /// The user chose "Read Value" in the menu.
    Event<HexField> ReadRegister;
    /// A persisted property was set; its name.
    Event<HexField, const std::string&> PropertyChanged;

    std::int32_t MinValue() const { return minimum_; }
    /// Raises 801 for a negative value and keeps the old minimum.
    void MinValue(std::int32_t value);
    std::int32_t MaxValue() const { return maximum_; }
    void MaxValue(std::int32_t value);
    /// The text that the field shows: digits without prefix.
    std::string HexText() const;
    /// Shows the text, with or without the prefix "&H". An empty one changes nothing; one that is no number within the
    /// limits is shown all the same, and TextError tells what is wrong with it.
    void HexText(const std::string& text);
    /// What was wrong with the text that was set last.
    const std::optional<Error>& TextError() const { return textError_; }
    QFont Font() const;
    void Font(const QFont& font);
    /// A locked field can have the focus and offers its menu, but refuses all edits.
    bool Locked() const;
    void Locked(bool locked);
    QColor BackColor() const;
    /// The digits turn dark or light, whichever reads better on the colour.
    void BackColor(const QColor& colour);
    QColor BackgroundColor() const { return BackColor(); }
    void BackgroundColor(const QColor& colour) { BackColor(colour); }

    /// What screen readers call the field.
    void AccessibleName(const QString& name);
    /// Takes away the undo steps, when the field goes on to show something else.
    void ForgetEdits();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString Text() const;
    void Text(const QString& text);
    void BuildMenu();
    void PutText(const QString& text);
    void UserChangedText();
    void RaiseChange();
    void FollowTextBoxHeight();

    HexFieldTextBox* txtInput;
    std::int32_t minimum_ = 0;
    std::int32_t maximum_ = 65535;
    QString lastText_;
    std::optional<Error> textError_;
    bool setting_ = false;
};

}
