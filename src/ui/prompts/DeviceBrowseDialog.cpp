#include "ui/prompts/DeviceBrowseDialog.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvex {

DeviceBrowseDialog::DeviceBrowseDialog(QWidget* parent) : QDialog(parent), List1(new QListWidget(this))
{
    setWindowTitle(QStringLiteral("Device Browse"));
    auto* label = new QLabel(QStringLiteral("Devices Discovered"), this);
    label->setBuddy(List1);
    NameControl(*label, "Label1");
    NameControl(*List1, "List1", label->text());
    List1->setMinimumWidth(fontMetrics().averageCharWidth() * 48);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(List1);
    layout->addLayout(MakeButtons());
    QObject::connect(List1, &QListWidget::itemDoubleClicked, this, [this] { Guarded([this] { accept(); }); });
}

QLayout* DeviceBrowseDialog::MakeButtons()
{
    auto* select = new QPushButton(QStringLiteral("Select"), this);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    NameControl(*select, "OKButton", select->text());
    NameControl(*cancel, "CancelButton", cancel->text());
    select->setDefault(true);
    select->setEnabled(false); // Return on a list without a selection must not cancel
    QObject::connect(List1, &QListWidget::itemSelectionChanged, select,
                     [this, select] { select->setEnabled(!List1->selectedItems().isEmpty()); });
    QObject::connect(select, &QPushButton::clicked, this, [this] { Guarded([this] { accept(); }); });
    QObject::connect(cancel, &QPushButton::clicked, this, [this] { Guarded([this] { reject(); }); });

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(select);
    row->addWidget(cancel);
    return row;
}

void DeviceBrowseDialog::AddDeviceName(const std::string& name) { List1->addItem(ToQt(name)); }

std::optional<std::size_t> DeviceBrowseDialog::Selection() const
{
    if (result() != Accepted || List1->selectedItems().isEmpty())
        return std::nullopt;
    return static_cast<std::size_t>(List1->currentRow());
}

}
