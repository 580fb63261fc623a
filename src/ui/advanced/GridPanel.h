#pragma once

#include "base/Event.h"

#include <QWidget>

#include <cstdint>
#include <string>
#include <vector>

class QLabel;
class QScrollBar;
class QStackedLayout;

namespace tarvex {

class IConfigController;
class RegisterDisplay;
class RegisterObject;

/// The register grid with its headings and its scroll bar, or a hint while there are no registers to show. It fills the
/// grid from the controller's registers and passes on what the user does in it.
class GridPanel : public QWidget {
    Q_OBJECT
public:
    explicit GridPanel(QWidget* parent = nullptr);

    /// The user gave the register of this name another value.
    Event<GridPanel, const std::string&, std::int32_t> Edited;
    /// The user asked to read the register of this name.
    Event<GridPanel, const std::string&> ReadRequested;

    void Fill(IConfigController& controller);
    void ShowValue(IConfigController& controller, std::int16_t position);
    void ShowAllValues(IConfigController& controller);
    /// Shows which registers were changed and not loaded into the board.
    void ShowMarks(IConfigController& controller);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* BuildHeadings();
    void PlaceHeadings();
    void FillRow(std::int16_t position, const RegisterObject& shown);
    void ShowRowValue(std::int16_t position, const RegisterObject& shown);
    void SetScrollRange();

    RegisterDisplay* RegisterDisplay1 = nullptr;
    QScrollBar* VScroll1 = nullptr;
    QWidget* headings_ = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* hint_ = nullptr;
    QStackedLayout* pages_ = nullptr;
    std::vector<Subscription> subscriptions_;
};

}
