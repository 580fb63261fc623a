#include "ui/common/WindowTools.h"
#include "ui/wizards/frame/AdjustBar.h"
#include "ui/wizards/frame/ElementList.h"
#include "ui/wizards/frame/PictureTile.h"
#include "ui/wizards/frame/WizardTree.h"
#include "ui/wizards/frame/WizardWindow.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace tarvex {

namespace {

constexpr QSize kElementPicture(72, 72);
constexpr QSize kHelpPicture(176, 132);
constexpr QSize kConnectionPicture(20, 20);

QLabel* AddLabel(QWidget& parent, const char* name, const QString& accessibleName = {})
{
    auto* label = new QLabel(&parent);
    label->setTextFormat(Qt::PlainText);
    NameControl(*label, name, accessibleName);
    return label;
}

QFrame* AddLine(QWidget& parent, const char* name, QFrame::Shape shape)
{
    auto* line = new QFrame(&parent);
    line->setFrameStyle(shape | QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    NameControl(*line, name);
    return line;
}

void Enlarge(QLabel& label, double factor)
{
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label.setFont(font);
}

}

void WizardWindow::BuildPage()
{
    auto* page = new QWidget(this);
    auto* parts = new QSplitter(Qt::Horizontal, page);
    parts->setChildrenCollapsible(false);
    parts->addWidget(BuildNavigation());
    ListView1 = new ElementList(parts);
    NameControl(*ListView1, "ListView1", "Settings");
    parts->addWidget(ListView1);
    parts->addWidget(BuildHelp());
    const int unit = fontMetrics().averageCharWidth();
    parts->setSizes({26 * unit, 68 * unit, 58 * unit});
    parts->setStretchFactor(1, 1);
    parts->setStretchFactor(2, 1);
    auto* column = new QVBoxLayout(page);
    column->addWidget(parts, 1);
    column->addWidget(AddLine(*page, "Line1", QFrame::HLine));
    column->addWidget(BuildAdjustment());
    setCentralWidget(page);
    QWidget::setTabOrder(TreeView1, ListView1);
    QWidget::setTabOrder(ListView1, HScroll1);
    QWidget::setTabOrder(HScroll1, HelpTipPanel);
    resize(QSize(158 * unit, 42 * fontMetrics().height()).boundedTo(screen()->availableSize() * 0.95));
}

QWidget* WizardWindow::BuildNavigation()
{
    TreeView1 = new WizardTree(this);
    NameControl(*TreeView1, "TreeView1", "Boards and channels");
    return TreeView1;
}

QWidget* WizardWindow::BuildHelp()
{
    auto* side = new QWidget(this);
    HelpTipPanel = new QTextBrowser(side);
    NameControl(*HelpTipPanel, "HelpTipPanel", "Help tip");
    HelpTipPanel->setOpenLinks(false);
    HelpTipPanel->setTabChangesFocus(true);
    HelpTipPanel->setTabStopDistance(fontMetrics().averageCharWidth() * 4);
    HelpPicture = new PictureTile(kHelpPicture, side);
    NameControl(*HelpPicture, "HelpPicture", "Help picture");
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(HelpTipPanel, 1);
    column->addWidget(AddLine(*side, "Line2", QFrame::HLine));
    column->addWidget(HelpPicture, 0, Qt::AlignHCenter);
    return side;
}

QFrame* WizardWindow::BuildAdjustment()
{
    auto* Frame1 = new QFrame(this);
    NameControl(*Frame1, "Frame1");
    Picture1 = new PictureTile(kElementPicture, Frame1);
    NameControl(*Picture1, "Picture1", "Picture of the setting");
    Label1 = AddLabel(*Frame1, "Label1");
    Enlarge(*Label1, 1.2);
    Description = AddLabel(*Frame1, "Description");
    Description->setWordWrap(true);
    Description->setMinimumHeight(2 * fontMetrics().lineSpacing());
    Description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    HScroll1 = new AdjustBar(services_.prompts, services_.busy, Frame1);
    NameControl(*HScroll1, "HScroll1", "Value of the setting");
    HScroll1->setMinimumHeight(fontMetrics().height() * 3 / 2);
    StatusText = AddLabel(*Frame1, "StatusText", "Value");
    StatusText->setAlignment(Qt::AlignCenter);
    Enlarge(*StatusText, 1.4);
    StatusText->setMinimumWidth(StatusText->fontMetrics().horizontalAdvance("Communication Failure "));
    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(Picture1, 0, 0, 3, 1);
    grid->addWidget(AddLine(*Frame1, "Line3", QFrame::VLine), 0, 1, 3, 1);
    grid->addWidget(Label1, 0, 2);
    grid->addWidget(Description, 1, 2);
    grid->addWidget(HScroll1, 2, 2);
    grid->addWidget(AddLine(*Frame1, "Line4", QFrame::VLine), 0, 3, 3, 1);
    grid->addWidget(StatusText, 0, 4, 3, 1);
    grid->setColumnStretch(2, 1);
    return Frame1;
}

void WizardWindow::BuildStatusBar()
{
    statusBar()->setObjectName("StatusBar1");
    message_ = AddLabel(*statusBar(), "Message", "Status");
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text must not widen the window
    message_->setIndent(fontMetrics().averageCharWidth());
    statusBar()->addWidget(message_, 1);
    ProgressBar1 = new QProgressBar(statusBar());
    NameControl(*ProgressBar1, "ProgressBar1", "Progress");
    ProgressBar1->setFixedWidth(fontMetrics().averageCharWidth() * 24);
    statusBar()->addPermanentWidget(ProgressBar1);
    ProgressBar1->hide();
    for (const std::string& key : frame_.Description().panels) {
        QLabel* panel = AddLabel(*statusBar(), key.c_str(), ToQt(key));
        panel->setText(" ");
        statusBar()->addPermanentWidget(panel);
        panels_.insert(ToQt(key), panel);
    }
    connected_ = new PictureTile(kConnectionPicture, statusBar());
    NameControl(*connected_, "Connected", "Connection");
    statusBar()->addPermanentWidget(connected_);
}

}
