#include "ui/advanced/AdvancedForm.h"
#include "ui/advanced/GridPanel.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace tarvex {

namespace {

template <class Control> Control* Add(QWidget& parent, const char* name, const QString& accessibleName = {})
{
    auto* control = new Control(&parent);
    NameControl(*control, name, accessibleName);
    return control;
}

void FitTo(QLineEdit& box, const QString& widest)
{
    box.setFixedWidth(box.fontMetrics().horizontalAdvance(widest) + 2 * box.fontMetrics().averageCharWidth() + 12);
}

}

void AdvancedForm::BuildControls()
{
    auto* page = new QWidget(this);
    grid_ = Add<GridPanel>(*page, "GridPanel");
    LBL_ZorbusID = Add<QLabel>(*page, "LBL_ZorbusID");
    LBL_ZorbusID->setText("ZorbusID:");
    TXT_ZorbusID = Add<QLineEdit>(*page, "TXT_ZorbusID", "Network address of the enclosure");
    TXT_ZorbusID->setText("0x000000");
    FitTo(*TXT_ZorbusID, "0xDDDDDDDD");
    TXT_ChannelLabel = Add<QLabel>(*page, "TXT_ChannelLabel");
    TXT_ChannelLabel->setText("Channel:");
    TXT_ChannelNum = Add<QLineEdit>(*page, "TXT_ChannelNum", "Connector on the enclosure");
    FitTo(*TXT_ChannelNum, "00000");
    for (QLineEdit* field : {TXT_ZorbusID, TXT_ChannelNum})
        field->setAcceptDrops(false); // a file dropped here is one dropped on the window
    CHK_RealTime = Add<QCheckBox>(*page, "CHK_RealTime", "Real Time Update");
    CHK_RealTime->setText("Real Time Update");
    CHK_RealTime->setToolTip("Write each edited register to the board at once");
    BTN_Read = Add<QPushButton>(*page, "BTN_Read", "Read Configuration");
    BTN_Read->setText("Read Configuration");
    BTN_Read->setShortcut(QKeySequence("F5"));
    BTN_Read->setToolTip("Read all registers from the board (F5)");
    BTN_Load = Add<QPushButton>(*page, "BTN_Load", "Load Configuration");
    BTN_Load->setText("Load Configuration");
    BTN_Load->setShortcut(QKeySequence("F6"));
    BTN_Load->setToolTip("Write the changed registers to the board (F6)");

    auto* below = new QHBoxLayout;
    for (QWidget* control :
         std::initializer_list<QWidget*>{LBL_ZorbusID, TXT_ZorbusID, TXT_ChannelLabel, TXT_ChannelNum, CHK_RealTime})
        below->addWidget(control);
    below->addStretch(1);
    below->addWidget(BTN_Read);
    below->addWidget(BTN_Load);
    auto* column = new QVBoxLayout(page);
    column->addWidget(grid_, 1);
    column->addLayout(below);
    setCentralWidget(page);
}

void AdvancedForm::BuildStatusBar()
{
    statusBar()->setObjectName("StatusBar1");
    message_ = Add<QLabel>(*statusBar(), "Message", "Status");
    message_->setTextFormat(Qt::PlainText);
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text must not widen the window
    message_->setIndent(fontMetrics().averageCharWidth());
    statusBar()->addWidget(message_, 1);
    ProgressBar1 = Add<QProgressBar>(*statusBar(), "ProgressBar1", "Progress");
    ProgressBar1->setFixedWidth(fontMetrics().averageCharWidth() * 24);
    statusBar()->addPermanentWidget(ProgressBar1);
    ProgressBar1->hide();
}

void AdvancedForm::ConnectControls()
{
    QObject::connect(BTN_Read, &QPushButton::clicked, this,
                     [this] { Guarded([this] { board_->ReadConfiguration(); }); });
    QObject::connect(BTN_Load, &QPushButton::clicked, this,
                     [this] { Guarded([this] { board_->LoadConfiguration(); }); });
    QObject::connect(CHK_RealTime, &QCheckBox::clicked, this, [this] {
        Guarded([this] {
            if (board_)
                board_->RealTimeTicked();
        });
    });
    QObject::connect(&StatusBarRefreshTimer, &QTimer::timeout, this, [this] {
        Guarded([this] {
            message_->clear();
            message_->setToolTip({});
        });
    });
}

}
