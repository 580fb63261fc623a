#include "ui/wizards/cendra/EnclosureMatch.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Enclosure.h"
#include "comm/IProductCatalogue.h"

namespace tarvex {

namespace {

std::string Counted(std::size_t savedCount, std::size_t liveCount, const std::string& what)
{
    return "it has " + std::to_string(savedCount) + " " + what + ", the enclosure " + std::to_string(liveCount);
}

std::string DifferenceOfProducts(const Enclosure& saved, const Enclosure& live)
{
    const auto& left = saved.GetProducts();
    const auto& right = live.GetProducts();
    if (left.size() != right.size())
        return Counted(left.size(), right.size(), "products");
    for (std::size_t i = 0; i < left.size(); ++i) {
        IProduct& one = *left[i].product;
        IProduct& other = *right[i].product;
        if (one.FunctionalComponent() != other.FunctionalComponent() || one.Name() != other.Name())
            return "its product " + std::to_string(i + 1) + " is " + one.Name() + ", that of the enclosure " +
                   other.Name();
    }
    return {};
}

bool ServesAlike(IProduct& one, IProduct& other)
{
    return one.FunctionalComponent() == other.FunctionalComponent() && one.Name() == other.Name() &&
           one.ConnectorsPerSlot() == other.ConnectorsPerSlot();
}

bool AreSameKind(std::int32_t savedId, std::int32_t liveId, std::int32_t type, const IProductCatalogue& catalogue)
{
    if (savedId == liveId)
        return true;
    const auto saved = catalogue.GetProduct(savedId, type);
    const auto live = catalogue.GetProduct(liveId, type);
    if (!saved || !live)
        Raise(ObjectError(1), "Cendra_Wizard::CompatableEnclosureConfig",
              "Unable to find a product for BaordID(s): 0x" + ToHex(savedId) + " ,0x" + ToHex(liveId));
    return ServesAlike(*saved, *live);
}

}

std::string CompatableEnclosureConfig(const Enclosure& saved, const Enclosure& live, const IProductCatalogue& catalogue)
{
    if (std::string difference = DifferenceOfProducts(saved, live); !difference.empty())
        return difference;
    std::vector<std::int32_t> left;
    std::vector<std::int32_t> right;
    saved.GetSlotPops(left);
    live.GetSlotPops(right);
    if (left.size() != right.size())
        return Counted(left.size(), right.size(), "slots");
    for (std::size_t slot = 0; slot < left.size(); ++slot)
        if (!AreSameKind(left[slot], right[slot], live.EnclosureType(), catalogue))
            return "slot " + std::to_string(slot + 1) + " holds boards of different kinds";
    return {};
}

}
