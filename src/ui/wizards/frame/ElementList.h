#pragma once

#include "base/Event.h"
#include "ui/wizards/frame/IWizardFrameView.h"

#include <QIcon>
#include <QListWidget>
#include <QMap>

#include <string>
#include <vector>

namespace tarvex {

/// The list of a board's elements with their pictures. A click on the selected one tells of it again.
class ElementList : public QListWidget {
public:
    explicit ElementList(QWidget* parent);

    Event<ElementList, const std::string&> Clicked;

    void ShowElements(const std::vector<ElementItem>& elements);
    /// Empty when none is selected.
    std::string Selected() const;
    /// Marks an item without telling of it.
    void Select(const std::string& name);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SelectionChanged();
    void Tell();
    QListWidgetItem* Find(const std::string& name) const;

    QMap<QString, QIcon> ImageList1; ///< by the element's name
};

}
