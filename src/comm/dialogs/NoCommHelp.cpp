#include "comm/dialogs/NoCommHelp.h"

#include "comm/dialogs/SerialSettings.h"
#include "comm/dialogs/SerialSettingsRules.h"
#include "comm/dialogs/WrappedCheckBox.h"
#include "platform/IUserPrompts.h"
#include "ui/common/Guarded.h"
#include "ui/common/ModalRun.h"
#include "ui/common/WindowTools.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tarvex {

namespace {

constexpr const char* kAdvice = "There were no Norvane products discovered.  Here is a checklist to help you "
                                "troubleshoot the problem.";

constexpr struct {
    const char* objectName;
    const char* caption;
} kChecks[] = {
    {"Check1", "Is the Norvane hardware plugged in and turned on?"},
    {"Check2", "Is the communication cable a null modem cable and correctly plugged between the PC and the Norvane "
               "hardware?"},
    {"Check3", "Are the currect communication parameters correct?"},
    {"Check4", "Is another application using the communication port?"},
};

}

NoCommHelp::NoCommHelp(IUserPrompts& prompts, QWidget* parent) : QDialog(parent), prompts_(prompts)
{
    setObjectName(QStringLiteral("NoCommHelp"));
    setWindowTitle(QStringLiteral("Tarvex Help Tip"));
    auto* label = new QLabel(QLatin1String(kAdvice), this);
    NameControl(*label, "Label1");
    label->setTextFormat(Qt::PlainText); // keeps the double blank
    label->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(MakeChecklist());
    auto* settingsRow = new QHBoxLayout;
    settingsRow->addWidget(MakeSettingsFrame(), 1);
    settingsRow->addWidget(
        MakeButton("BTN_ChangeSettings", QStringLiteral("Change Settings"), [this] { ChangeSettings(); }), 0,
        Qt::AlignBottom);
    layout->addLayout(settingsRow);
    layout->addStretch();
    layout->addLayout(MakeButtons());
    const int width = fontMetrics().averageCharWidth() * 70;
    setMinimumSize(width, layout->totalHeightForWidth(width)); // narrower, the captions would need more lines
}

QLayout* NoCommHelp::MakeChecklist()
{
    auto* column = new QVBoxLayout;
    for (const auto& each : kChecks) {
        auto* check = new WrappedCheckBox(QLatin1String(each.caption), this);
        NameControl(*check, each.objectName, check->text());
        column->addWidget(check);
    }
    return column;
}

QGroupBox* NoCommHelp::MakeSettingsFrame()
{
    auto* frame = new QGroupBox(QStringLiteral("Current Serial Port Settings"), this);
    NameControl(*frame, "Frame1", frame->title());
    TXT_COM = MakeTextBox("TXT_COM", QStringLiteral("Current COM port"), QStringLiteral("COM 1"));
    TXT_Baud = MakeTextBox("TXT_Baud", QStringLiteral("Current baud rate"), QStringLiteral("9600 Baud"));
    auto* row = new QHBoxLayout(frame);
    row->addWidget(TXT_COM);
    row->addWidget(TXT_Baud);
    return frame;
}

QLineEdit* NoCommHelp::MakeTextBox(const char* objectName, const QString& accessibleName, const QString& text)
{
    auto* box = new QLineEdit(text, this);
    NameControl(*box, objectName, accessibleName);
    box->setReadOnly(true);
    return box;
}

QLayout* NoCommHelp::MakeButtons()
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    BTN_OK = MakeButton("BTN_OK", QStringLiteral("Retry"), [this] { accept(); });
    BTN_OK->setDefault(true);
    row->addWidget(BTN_OK);
    row->addWidget(MakeButton("BTN_Help", QStringLiteral("Help"), [this] { prompts_.ShowHelp(kConnectingTopic); }));
    row->addWidget(MakeButton("BTN_Cancel", QStringLiteral("Cancel"), [this] { reject(); }));
    return row;
}

template <class Clicked>
QPushButton* NoCommHelp::MakeButton(const char* objectName, const QString& caption, Clicked clicked)
{
    auto* button = new QPushButton(caption, this);
    NameControl(*button, objectName, caption);
    QObject::connect(button, &QPushButton::clicked, this, [clicked] { Guarded(clicked); });
    return button;
}

void NoCommHelp::InitSettings(const CommSettings& settings)
{
    settings_ = settings;
    TXT_COM->setText(ToQt(PortInUse(settings)));
    TXT_Baud->setText(ToQt(BaudInUse(settings)));
}

void NoCommHelp::ChangeSettings()
{
    const OwnedDialog<SerialSettings> dialog("SerialSettings", prompts_, this);
    const auto changed = dialog->CommSettingsChanged.Subscribe([this](const CommSettings& settings) {
        InitSettings(settings);
        SettingsChanged.Raise(settings);
    });
    dialog->SetCommSettings(settings_);
    RunModal(*dialog);
}

void NoCommHelp::reject()
{
    Guarded([this] {
        userCancelled_ = true;
        const QPointer<NoCommHelp> self = this;
        UserCancelledEvent.Raise();
        if (self)
            QDialog::reject();
    });
}

void NoCommHelp::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) { // shown anew, not only brought back from an icon
        userCancelled_ = false;
        BTN_OK->setFocus();
    }
    QDialog::showEvent(event);
}

}
