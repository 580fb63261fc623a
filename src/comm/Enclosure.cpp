#include "comm/Enclosure.h"

#include "base/Error.h"
#include "base/IErrorLog.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "comm/IProductCatalogue.h"

#include <algorithm>
#include <cstddef>

namespace tarvex {

namespace {

constexpr const char* kDefineSlotPops = "Enclosure::DefineSlotPops";

}

void Enclosure::SetNodeBasics(const NodeRecord& record)
{
    record_ = record;
    products_.clear();
}

void Enclosure::DefineSlotPops(const std::vector<std::int32_t>& boardIds, std::int16_t slotCount,
                               const IProductCatalogue* catalogue)
{
    if (slotCount < 0 || !catalogue)
        return;
    if (static_cast<std::size_t>(slotCount) > boardIds.size())
        RaiseRuntime(kErrSubscript, kDefineSlotPops);
    slotBoardIds_.assign(static_cast<std::size_t>(slotCount), 0);
    for (int slot = 0; slot < slotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        if (auto product = FindProduct(boardIds[index], *catalogue))
            slotBoardIds_[index] = KeepOne(std::move(product), slot)->BoardID();
    }
    for (const SlotProduct& each : products_)
        GiveConnectors(*each.product);
}

std::int16_t Enclosure::GetSlotPops(std::vector<std::int32_t>& boardIds) const
{
    boardIds = slotBoardIds_;
    return static_cast<std::int16_t>(slotBoardIds_.size());
}

std::shared_ptr<IProduct> Enclosure::FindProduct(std::int32_t boardId, const IProductCatalogue& catalogue) const
{
    try {
        return catalogue.GetProduct(boardId, record_.enclosureType);
    } catch (const Error&) {
        errorLog_.LogCurrentError();
        return nullptr;
    }
}

/// The product that stands for the slot: one of that name that is there already, else this one.
std::shared_ptr<IProduct> Enclosure::KeepOne(std::shared_ptr<IProduct> product, int slot)
{
    const std::string name = product->Name();
    const auto known = std::find_if(products_.begin(), products_.end(), [&name](const SlotProduct& each) {
        return EqualsIgnoringCase(each.product->Name(), name);
    });
    if (known != products_.end())
        return known->product;
    products_.push_back({std::to_string(slot), product});
    return product;
}

void Enclosure::GiveConnectors(IProduct& product) const
{
    const std::int32_t boardId = product.BoardID();
    const int perSlot = product.ConnectorsPerSlot();
    std::vector<std::int16_t> connectors;
    for (std::size_t slot = 0; slot < slotBoardIds_.size(); ++slot)
        for (int connector = 1; slotBoardIds_[slot] == boardId && connector <= perSlot; ++connector)
            connectors.push_back(ToInt16(static_cast<std::int64_t>(slot) * perSlot + connector, kDefineSlotPops));
    product.Init(connectors, ToInt16(static_cast<std::int64_t>(connectors.size()), kDefineSlotPops));
}

}
