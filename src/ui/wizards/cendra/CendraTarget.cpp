#include "ui/wizards/cendra/CendraTarget.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/CalculateASPI.h"
#include "comm/Enclosure.h"
#include "shell/Document.h"
#include "ui/wizards/cendra/CendraTree.h"

#include <utility>

namespace tarvex {

void CendraTarget::Use(std::shared_ptr<Enclosure> enclosure)
{
    enclosure_ = std::move(enclosure);
    connector_ = kNoConnector;
}

const Enclosure& CendraTarget::TheEnclosure() const
{
    if (!enclosure_)
        RaiseRuntime(kErrInvalidCall, "Cendra_Wizard::Enclosure");
    return *enclosure_;
}

std::string CendraTarget::EnclosureName() const { return enclosure_ ? enclosure_->Name() : std::string(); }

void CendraTarget::AddressController() const
{
    if (enclosure_)
        host_->Controller().pid(enclosure_->ZorbusAddress());
}

bool CendraTarget::Choose(const std::string& key)
{
    const auto leaf = LeafOfKey(key);
    if (!leaf || !enclosure_ || leaf->product >= enclosure_->GetProducts().size())
        return false;
    product_ = leaf->product;
    connector_ = static_cast<std::uint16_t>(leaf->connector);
    host_->TheDocument().ShowTarget(enclosure_->ZorbusAddress(), leaf->connector);
    return true;
}

bool CendraTarget::IsOwn(std::size_t product) const
{
    const auto& products = TheEnclosure().GetProducts();
    return product < products.size() && IsOwn(products[product].product->Name());
}

std::optional<std::int16_t> CendraTarget::OwnAspi(const RegisterObject& target) const
{
    const std::int16_t aspi = HasConnector() && IsOwn(product_) ? Aspi(target) : kNoAspi;
    return aspi == kNoAspi ? std::nullopt : std::optional(aspi);
}

std::int16_t CendraTarget::AspiAt(const RegisterObject& target, std::uint16_t connector) const
{
    if (connector == kNoConnector)
        return kNoAspi;
    return CalculateASPI(ToInt16(connector, "Cendra_Wizard::Aspi"), &target, TheEnclosure().EnclosureType());
}

}
