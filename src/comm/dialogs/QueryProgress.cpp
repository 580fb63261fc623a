#include "comm/dialogs/QueryProgress.h"

#include "comm/dialogs/SerialSettingsRules.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

namespace tarvex {

QueryProgress::QueryProgress(QWidget* parent)
    : QDialog(parent), LBL_Title(new QLabel(QStringLiteral("Looking for hardware..."), this)),
      LBL_Elapsed(new QLabel(this)), BTN_Cancel(new QPushButton(QStringLiteral("Cancel"), this))
{
    setObjectName(QStringLiteral("QueryProgress"));
    setWindowTitle(QStringLiteral("Tarvex"));
    NameControl(*LBL_Title, "LBL_Title");
    NameControl(*LBL_Elapsed, "LBL_Elapsed");
    NameControl(*BTN_Cancel, "BTN_Cancel", BTN_Cancel->text());
    BTN_Cancel->setAutoDefault(false); // the Return that began the search must not end it
    QObject::connect(BTN_Cancel, &QPushButton::clicked, this, &QueryProgress::reject);

    auto* bar = new QProgressBar(this);
    NameControl(*bar, "PRG_Search", QStringLiteral("Search under way"));
    bar->setRange(0, 0); // it moves without an end
    bar->setTextVisible(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(LBL_Title);
    layout->addWidget(bar);
    auto* row = new QHBoxLayout;
    row->addWidget(LBL_Elapsed, 1);
    row->addWidget(BTN_Cancel);
    layout->addLayout(row);
    setMinimumWidth(fontMetrics().averageCharWidth() * 45);

    auto* tick = new QTimer(this);
    QObject::connect(tick, &QTimer::timeout, this, [this] { Guarded([this] { ShowElapsed(); }); });
    sinceShown_.start();
    tick->start(std::chrono::milliseconds(200));
    ShowElapsed();
}

void QueryProgress::ShowElapsed() { LBL_Elapsed->setText(ToQt(ElapsedText(sinceShown_.elapsed() / 1000, cancelled_))); }

void QueryProgress::reject()
{
    Guarded([this] {
        cancelled_ = true;
        BTN_Cancel->setEnabled(false);
        ShowElapsed();
    });
}

}
