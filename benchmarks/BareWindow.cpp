#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>

#include <functional>
#include <map>

namespace {

using Maker = std::function<QWidget*(QWidget*, const QString&)>;

const std::map<QString, Maker>& Makers()
{
    static const std::map<QString, Maker> makers = {
        {"QLabel", [](QWidget* parent, const QString& text) { return new QLabel(text, parent); }},
        {"QLineEdit", [](QWidget* parent, const QString& text) { return new QLineEdit(text, parent); }},
        {"QPushButton", [](QWidget* parent, const QString& text) { return new QPushButton(text, parent); }},
        {"QCheckBox", [](QWidget* parent, const QString& text) { return new QCheckBox(text, parent); }},
        {"QToolButton", [](QWidget* parent, const QString&) { return new QToolButton(parent); }},
        {"QScrollBar", [](QWidget* parent, const QString&) { return new QScrollBar(parent); }},
        {"QProgressBar", [](QWidget* parent, const QString&) { return new QProgressBar(parent); }},
        {"QWidget", [](QWidget* parent, const QString&) { return new QWidget(parent); }},
    };
    return makers;
}

/// The yardstick for Tarvex's main window: as many widgets of each kind, in a plain grid, with nothing behind them.
class BareWindow : public QMainWindow {
public:
    BareWindow() : grid_(new QGridLayout)
    {
        setCentralWidget(new QWidget);
        centralWidget()->setLayout(grid_);
    }

    /// Adds what one argument names: kind, "visible" or "hidden", and count, with colons between.
    void Add(const QString& argument)
    {
        const auto parts = argument.split(':');
        const int count = parts.value(2).toInt();
        const auto maker = Makers().find(parts.value(0));
        for (int i = 0; i < count; ++i) {
            if (maker != Makers().end())
                Place(maker->second(centralWidget(), QString::number(i)), parts.value(1) == "visible");
            else if (parts.value(0) == "QMenu")
                menuBar()->addMenu("Menu " + QString::number(i));
            else if (parts.value(0) == "QStatusBar")
                statusBar()->showMessage("Ready");
            else if (parts.value(0) == "QAction")
                AddAction(i);
        }
    }

private:
    void Place(QWidget* widget, bool visible)
    {
        static constexpr int kColumns = 12;
        if (visible)
            grid_->addWidget(widget, placed_ / kColumns, placed_ % kColumns);
        else
            widget->hide();
        placed_ += visible ? 1 : 0;
    }

    void AddAction(int index)
    {
        const auto menus = menuBar()->findChildren<QMenu*>();
        if (!menus.empty())
            menus[index % menus.size()]->addAction("Entry " + QString::number(index));
    }

    QGridLayout* grid_;
    int placed_ = 0;
};

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    BareWindow window;
    window.setObjectName("BareWindow");
    for (int i = 1; i < argc; ++i)
        window.Add(argv[i]);
    window.show();
    return QApplication::exec();
}
