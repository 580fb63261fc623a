#include "ui/wizards/frame/WizardTree.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace tarvex {

namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kMostLetters = 40;

std::string KeyOf(const QTreeWidgetItem& item) { return FromQt(item.data(0, kKeyRole).toString()); }

QTreeWidgetItem* MakeItem(const TreeNode& node)
{
    auto* item = new QTreeWidgetItem({ToQt(node.caption)});
    item->setData(0, kKeyRole, ToQt(node.key));
    for (const TreeNode& child : node.children)
        item->addChild(MakeItem(child));
    return item;
}

void ShowCheck(QTreeWidgetItem& item, bool shown)
{
    item.setFlags(item.flags().setFlag(Qt::ItemIsUserCheckable, shown));
    item.setData(0, Qt::CheckStateRole, shown ? QVariant(Qt::Unchecked) : QVariant());
}

}

WizardTree::WizardTree(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    QObject::connect(this, &QTreeWidget::itemChanged, this, [this] { ticked_ = true; });
    QObject::connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (!ticked_)
            Tell(item);
    });
}

void WizardTree::Tell(const QTreeWidgetItem* item)
{
    Guarded([&] {
        if (item != nullptr)
            NodeClicked.Raise(KeyOf(*item));
    });
}

void WizardTree::mousePressEvent(QMouseEvent* event)
{
    ticked_ = false;
    QTreeWidget::mousePressEvent(event);
}

void WizardTree::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Tell(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags WizardTree::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    if (event != nullptr && event->type() == QEvent::KeyPress)
        return QItemSelectionModel::NoUpdate;
    return QTreeWidget::selectionCommand(index, event);
}

void WizardTree::ShowNodes(const std::vector<TreeNode>& roots)
{
    clear();
    for (const TreeNode& each : roots)
        addTopLevelItem(MakeItem(each));
    ShowChecks(checksShown_);
    expandAll();
    FitToCaptions();
}

void WizardTree::FitToCaptions()
{
    const int letter = fontMetrics().averageCharWidth();
    const int edges = 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    setMinimumWidth(std::clamp(sizeHintForColumn(0) + edges, 16 * letter, kMostLetters * letter));
}

void WizardTree::Select(const std::string& key)
{
    QTreeWidgetItem* found = nullptr;
    for (QTreeWidgetItemIterator item(this); *item != nullptr && found == nullptr; ++item)
        if (KeyOf(**item) == key)
            found = *item;
    setCurrentItem(found);
}

void WizardTree::ShowChecks(bool shown)
{
    checksShown_ = shown;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item)
        ShowCheck(**item, shown);
    FitToCaptions();
}

std::vector<std::string> WizardTree::Checked() const
{
    std::vector<std::string> keys;
    QTreeWidgetItemIterator item(const_cast<WizardTree*>(this), QTreeWidgetItemIterator::Checked);
    for (; *item != nullptr; ++item)
        keys.push_back(KeyOf(**item));
    return keys;
}

}
