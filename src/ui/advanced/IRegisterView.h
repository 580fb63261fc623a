#pragma once

#include "ui/advanced/ProductRules.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

/// One entry of the product or link menu.
struct MenuChoice {
    std::string caption;
    bool checked = false;

    bool operator==(const MenuChoice&) const = default;
};

/// What the actions on a board need of the window that shows it. The window decides nothing: it shows what it is told.
class IRegisterView {
public:
    virtual ~IRegisterView() = default;

    virtual bool IsViewVisible() const = 0;
    /// Shows the controller's registers anew, from the first one.
    virtual void FillGrid() = 0;
    /// Shows the value of one register, by its position, or of all.
    virtual void ShowValue(std::int16_t position) = 0;
    virtual void ShowAllValues() = 0;
    /// Shows which registers were changed and not loaded into the board; the three above show that, too.
    virtual void ShowMarks() = 0;
    virtual bool RealTime() const = 0;
    /// Ticks or unticks "Real Time Update" without asking the board.
    virtual void RealTime(bool on) = 0;
    virtual void EnableTransfers(bool enabled) = 0;
    virtual void ShowRules(const ProductRules& rules) = 0;
    virtual void ShowTitle(const std::string& title) = 0;
    virtual void ShowProducts(const std::vector<MenuChoice>& products) = 0;
    virtual void ShowLinks(const std::vector<MenuChoice>& links) = 0;
    /// Puts address and connector of the serial network into their boxes.
    virtual void ShowTarget(const std::string& address, const std::string& connector) = 0;
    /// What these boxes hold now.
    virtual std::string TargetAddress() const = 0;
    virtual std::string TargetConnector() const = 0;
};

}
