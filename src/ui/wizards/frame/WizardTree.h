#pragma once

#include "base/Event.h"
#include "ui/wizards/frame/IWizardFrameView.h"

#include <QTreeWidget>

#include <string>
#include <vector>

namespace tarvex {

/// The navigation tree. A node is chosen with a click, or with Enter; a click on its check box only ticks it. The other
/// keys move the keyboard, not the mark: this stays on what was chosen.
class WizardTree : public QTreeWidget {
public:
    explicit WizardTree(QWidget* parent);

    Event<WizardTree, const std::string&> NodeClicked;

    void ShowNodes(const std::vector<TreeNode>& roots);
    void Select(const std::string& key);
    void ShowChecks(bool shown);
    std::vector<std::string> Checked() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void keyboardSearch(const QString&) override {} // would move the mark

private:
    void FitToCaptions();
    void Tell(const QTreeWidgetItem* item);

    bool checksShown_ = false;
    bool ticked_ = false; ///< the click that is going on has hit a check box
};

}
