#include "shell/window/UT_OutputWindow.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvex {

UT_OutputWindow::UT_OutputWindow(IUserPrompts& prompts) : prompts_(prompts)
{
    setObjectName("UT_Output");
    setWindowTitle("Running Unit Test");
    BuildControls();
    ConnectControls();
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 28);
}

void UT_OutputWindow::BuildControls()
{
    ProgressBar1 = new QProgressBar(this);
    LST_Output = new QListWidget(this);
    BTN_OpenFile = new QPushButton("OpenFile", this);
    Close = new QPushButton("Close", this);
    NameControl(*ProgressBar1, "ProgressBar1", "Progress");
    NameControl(*LST_Output, "LST_Output", "Report");
    NameControl(*BTN_OpenFile, "BTN_OpenFile", "OpenFile");
    NameControl(*Close, "Close", "Close");
    LST_Output->setWordWrap(true); // paths are long
    BTN_OpenFile->hide();

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(BTN_OpenFile);
    buttons->addStretch();
    buttons->addWidget(Close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(ProgressBar1);
    column->addWidget(LST_Output);
    column->addLayout(buttons);
    Close->setFocus();
}

void UT_OutputWindow::ConnectControls()
{
    QObject::connect(BTN_OpenFile, &QPushButton::clicked, this,
                     [this] { Guarded([this] { prompts_.OpenInEditor(reportFile_); }); });
    QObject::connect(Close, &QPushButton::clicked, this, [this] { Guarded([this] { CloseWindow(*this); }); });
}

void UT_OutputWindow::SetProgressRange(std::int32_t count)
{
    ProgressBar1->setRange(0, count);
    ProgressBar1->setValue(0);
}

void UT_OutputWindow::SetFileLink(const std::string& fileName)
{
    reportFile_ = fileName;
    BTN_OpenFile->show();
}

void UT_OutputWindow::AddReportLine(const std::string& text)
{
    LST_Output->addItem(ToQt(text));
    LST_Output->scrollToBottom();
    ProgressBar1->setValue(std::min(ProgressBar1->value() + 1, ProgressBar1->maximum()));
}

void UT_OutputWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Guarded([this] { ExitApplication(0, this); });
}

}
