#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QPushButton;

namespace tarvex {

/// Says that the network is searched, shows that the search lives, and lets the user give it up. The window only
/// remembers that; who searches looks at it and closes the window when the search has ended.
class QueryProgress : public QDialog {
public:
    explicit QueryProgress(QWidget* parent);

    /// True after Cancel, Escape or the close box.
    bool Cancelled() const { return cancelled_; }

    /// Gives the search up; the window stays.
    void reject() override;

private:
    void ShowElapsed();

    QElapsedTimer sinceShown_;
    bool cancelled_ = false;
    QLabel* LBL_Title;
    QLabel* LBL_Elapsed;
    QPushButton* BTN_Cancel;
};

}
