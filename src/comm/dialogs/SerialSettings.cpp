#include "comm/dialogs/SerialSettings.h"

#include "base/Numbers.h"
#include "comm/dialogs/SerialSettingsRules.h"
#include "platform/BusyPointer.h"
#include "platform/IUserPrompts.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace tarvex {

SerialSettings::SerialSettings(IUserPrompts& prompts, QWidget* parent)
    : QDialog(parent), prompts_(prompts), CMB_Port(MakeList("CMB_Port", QStringLiteral("COM port"))),
      CMB_Baud(MakeList("CMB_Baud", QStringLiteral("Baud rate"))),
      CHK_KeepOpen(new QCheckBox(QStringLiteral("Keep Link Open"), this))
{
    setObjectName(QStringLiteral("SerialSettings"));
    setWindowTitle(QStringLiteral("Serial Port Settings"));
    NameControl(*CHK_KeepOpen, "CHK_KeepOpen", CHK_KeepOpen->text());
    CHK_KeepOpen->setChecked(settings_.keepLinkOpen);
    FillLists();
    HearUser();

    auto* layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("COM &port"), CMB_Port);
    layout->addRow(QStringLiteral("&Baud rate"), CMB_Baud);
    layout->addRow(CHK_KeepOpen);
    layout->addRow(MakeButtons());
    setMinimumWidth(fontMetrics().averageCharWidth() * 40); // so that the title can be read
}

/// The lists can be typed into, so that a baud rate that is not among the choices can be shown.
QComboBox* SerialSettings::MakeList(const char* objectName, const QString& accessibleName)
{
    auto* list = new QComboBox(this);
    NameControl(*list, objectName, accessibleName);
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setCompleter(nullptr);
    list->lineEdit()->setAccessibleName(accessibleName);
    return list;
}

QLayout* SerialSettings::MakeButtons()
{
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    NameControl(*ok, "BTN_OK", ok->text());
    NameControl(*cancel, "BTN_Cancel", cancel->text());
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, this, [this] { Guarded([this] { Ok(); }); });
    QObject::connect(cancel, &QPushButton::clicked, this, &SerialSettings::reject);

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

void SerialSettings::FillLists()
{
    for (int port = 1; port <= kPortChoices; ++port)
        CMB_Port->addItem(ToQt(PortEntry(port)));
    CMB_Port->setMaxVisibleItems(kPortChoices);
    for (const std::int32_t baudRate : kBaudRates)
        CMB_Baud->addItem(QString::number(baudRate));
}

/// Only what the user does changes the settings; what is typed is put back.
void SerialSettings::HearUser()
{
    QObject::connect(CMB_Port, &QComboBox::activated, this, [this](int position) {
        Guarded([&] { settings_.comPort = ToInt16(position + 1, "SerialSettings::CMB_Port"); });
    });
    QObject::connect(CMB_Baud, &QComboBox::activated, this, [this](int position) {
        Guarded([&] { settings_.baudRate = kBaudRates.at(static_cast<std::size_t>(position)); });
    });
    QObject::connect(CMB_Port->lineEdit(), &QLineEdit::textEdited, this,
                     [this] { Guarded([this] { CMB_Port->setEditText(ToQt(PortEntry(settings_.comPort))); }); });
    QObject::connect(CMB_Baud->lineEdit(), &QLineEdit::textEdited, this,
                     [this] { Guarded([this] { CMB_Baud->setEditText(QString::number(settings_.baudRate)); }); });
    QObject::connect(CHK_KeepOpen, &QCheckBox::toggled, this,
                     [this](bool on) { Guarded([&] { settings_.keepLinkOpen = on; }); });
}

void SerialSettings::SetCommSettings(const CommSettings& settings)
{
    settings_ = settings;
    if (settings.kind != kSerialPortKind)
        return;
    ShowPort();
    ShowBaud();
    CHK_KeepOpen->setChecked(settings.keepLinkOpen);
}

void SerialSettings::ShowPort()
{
    if (const auto position = PortPosition(settings_.comPort))
        CMB_Port->setCurrentIndex(*position);
}

void SerialSettings::ShowBaud()
{
    const auto position = BaudPosition(settings_.baudRate);
    CMB_Baud->setCurrentIndex(position.value_or(-1));
    if (!position)
        CMB_Baud->setEditText(QString::number(settings_.baudRate));
}

void SerialSettings::Ok()
{
    settings_.kind = kSerialPortKind;
    const QPointer<SerialSettings> self = this; // its parent may go while the link is tried
    {
        const BusyPointer pointer(prompts_);
        const CommSettings chosen = settings_;
        CommSettingsChanged.Raise(chosen);
    }
    if (self)
        accept();
}

void SerialSettings::reject()
{
    Guarded([this] {
        const QPointer<SerialSettings> self = this;
        UserCancelled.Raise();
        if (self)
            QDialog::reject();
    });
}

}
