#pragma once

#include "ui/advanced/IRegisterView.h"

#include <functional>

namespace tarvex {

/// A register window without a window: keeps what it was told to show last, and how often.
class FakeRegisterView : public IRegisterView {
public:
    bool IsViewVisible() const override { return visible; }
    void FillGrid() override
    {
        ++fills;
        echo();
    }
    void ShowValue(std::int16_t position) override
    {
        shownRows.push_back(position);
        echo();
    }
    void ShowAllValues() override { echo(); }
    void ShowMarks() override { ++marksShown; }
    bool RealTime() const override { return realTime; }
    void RealTime(bool on) override { realTime = on; }
    void EnableTransfers(bool enabled) override { transfersEnabled = enabled; }
    void ShowRules(const ProductRules& rulesToShow) override { rules = rulesToShow; }
    void ShowTitle(const std::string& text) override { title = text; }
    void ShowProducts(const std::vector<MenuChoice>&) override {}
    void ShowLinks(const std::vector<MenuChoice>& choices) override { links = choices; }
    void ShowTarget(const std::string& newAddress, const std::string& newConnector) override
    {
        address = newAddress;
        connector = newConnector;
    }
    std::string TargetAddress() const override { return address; }
    std::string TargetConnector() const override { return connector; }

    bool visible = true;
    std::string address, connector;
    bool realTime = false;
    std::function<void()> echo = [] {}; ///< what the grid reports while it takes new values
    int fills = 0;
    int marksShown = 0;
    std::vector<std::int16_t> shownRows;
    bool transfersEnabled = false;
    ProductRules rules{"", false, false};
    std::string title;
    std::vector<MenuChoice> links;
};

}
