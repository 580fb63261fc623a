#include "shell/ProductViews.h"

#include "base/Text.h"
#include "comm/Links.h"
#include "comm/Products.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

std::shared_ptr<IProduct> NoProduct() { return nullptr; }

template <class Product> std::shared_ptr<IProduct> Make() { return std::make_shared<Product>(); }

constexpr std::array<WizardStart, 5> kWizardStarts{{
    {"Vexlon", "2.0.0", WizardKind::Vexlon, kVexlonWizard, "Vexlon", kHidDeviceType, true, false, NoProduct},
    {"Vexlon-Fx", "2.0.0", WizardKind::Vexlon, "Vexlon-Fx Wizard", "Vexlon-Fx_Channel1", kHidDeviceType, true, false,
     NoProduct},
    {"Ossary-Plus", "2.5.0", WizardKind::AnalogTx, "Ossary-Plus Wizard", "Ossary-Plus", kSerialDeviceType, false, true,
     NoProduct},
    {"Cendra", "2.4.0", WizardKind::Cendra, "Cendra Wizard", "Cendra", kSerialDeviceType, false, false,
     Make<CendraIOBoard>},
    {"Ossary", "2.4.10", WizardKind::Cendra, "Ossary Wizard", "Ossary", kSerialDeviceType, false, false, Make<Ossary>},
}};

struct ProductView {
    std::string_view product;
    std::string_view view;
};

constexpr std::array<ProductView, 8> kProductViews{{
    {"Vexlon", kVexlonWizard},
    {"Vexlon-Fx", kVexlonWizard},
    {"Kestra-Fx", kVexlonWizard},
    {"Cendra", kVexlonWizard},
    {"Scaler", "Unknown form for scaler"},
    {"Ossary", "Ossary"},
    {"Ossary-Plus", "Ossary-Plus"},
    {kAdvancedForm, kAdvancedForm},
}};

template <class Predicate> const WizardStart* FindStart(const Predicate& predicate)
{
    const auto* found = std::find_if(kWizardStarts.begin(), kWizardStarts.end(), predicate);
    return found == kWizardStarts.end() ? nullptr : found;
}

}

const WizardStart* FindWizardStart(std::string_view upperCaseProduct)
{
    return FindStart([&](const WizardStart& start) { return ToUpper(start.product) == upperCaseProduct; });
}

bool IsWizardViewName(std::string_view viewName)
{
    return FindStart([&](const WizardStart& start) { return start.caption == viewName; }) != nullptr;
}

std::string ViewNameForProduct(std::string_view product)
{
    if (ContainsIgnoringCase(product, "Vexlon-Fx"))
        product = "Vexlon-Fx";
    for (const ProductView& entry : kProductViews)
        if (entry.product == product)
            return std::string(entry.view);
    return {};
}

std::string DeviceNameForProduct(const std::string& product)
{
    const WizardStart* start = FindStart([&](const WizardStart& each) { return each.product == product; });
    return start ? start->deviceName : product;
}

}
