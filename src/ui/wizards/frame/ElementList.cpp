#include "ui/wizards/frame/ElementList.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace tarvex {

namespace {

constexpr int kIconSide = 48;

}

ElementList::ElementList(QWidget* parent) : QListWidget(parent)
{
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setWordWrap(true);
    setIconSize({kIconSide, kIconSide});
    setSpacing(4);
    setSelectionRectVisible(false);
    QObject::connect(this, &QListWidget::itemSelectionChanged, this, [this] { SelectionChanged(); });
}

void ElementList::SelectionChanged()
{
    if (!selectedItems().isEmpty()) {
        Tell();
    } else if (currentItem() != nullptr) { // a click beside the items takes no selection away
        const QSignalBlocker quiet(this);
        currentItem()->setSelected(true);
    }
}

void ElementList::Tell()
{
    Guarded([this] {
        if (!Selected().empty())
            Clicked.Raise(Selected());
    });
}

void ElementList::ShowElements(const std::vector<ElementItem>& elements)
{
    const QSignalBlocker quiet(this);
    clear();
    ImageList1.clear();
    QSize cell(0, 0);
    for (const ElementItem& each : elements) {
        const QString name = ToQt(each.name);
        const QIcon& image =
            *ImageList1.insert(each.imageKey.empty() ? name : ToQt(each.imageKey), QIcon(ToQt(each.picture)));
        addItem(new QListWidgetItem(image, name));
        const QRect words = fontMetrics().boundingRect({0, 0, 2 * kIconSide, 10 * kIconSide},
                                                       Qt::TextWordWrap | Qt::AlignHCenter, name);
        cell = cell.expandedTo({std::max(words.width(), kIconSide) + 16, words.height() + kIconSide + 12});
    }
    setGridSize(cell);
}

std::string ElementList::Selected() const
{
    const auto selected = selectedItems();
    return selected.isEmpty() ? std::string() : FromQt(selected.front()->text());
}

QListWidgetItem* ElementList::Find(const std::string& name) const
{
    const auto found = findItems(ToQt(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found.isEmpty() ? nullptr : found.front();
}

void ElementList::Select(const std::string& name)
{
    const QSignalBlocker quiet(this);
    setCurrentItem(Find(name));
    if (currentItem() == nullptr)
        clearSelection();
    viewport()->update();
}

void ElementList::mousePressEvent(QMouseEvent* event)
{
    const QListWidgetItem* hit = itemAt(event->position().toPoint());
    const bool again = event->button() == Qt::LeftButton && hit != nullptr && hit->isSelected();
    QListWidget::mousePressEvent(event);
    if (again)
        Tell();
}

void ElementList::keyPressEvent(QKeyEvent* event)
{
    QListWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Tell();
}

}
