#pragma once

#include "comm/IProduct.h"
#include "platform/zorbus/NodeRecord.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class IErrorLog;
class IProductCatalogue;

/// One enclosure on the serial network, or one that a data file describes: who it is, which board sits in each slot,
/// and one product object per kind of board with the connectors that it serves. It never speaks to hardware.
class Enclosure {
public:
    /// A product, and the number of the slot where it was found first, as decimal text.
    struct SlotProduct {
        std::string slot;
        std::shared_ptr<IProduct> product;
    };

    explicit Enclosure(IErrorLog& errorLog) : errorLog_(errorLog) { record_.enclosureType = kUnknownType; }

    /// Takes over the identity and drops the products.
    void SetNodeBasics(const NodeRecord& record);
    /// Takes the board ids of the first `slotCount` slots and makes products and connectors of them. A board that the
    /// catalogue does not know leaves its slot at 0; so does one whose description is no good, which is logged. Without
    /// a catalogue or with a negative count nothing happens. Raises 9 when there are fewer board ids than slots, 6 when
    /// a connector number does not fit.
    void DefineSlotPops(const std::vector<std::int32_t>& boardIds, std::int16_t slotCount,
                        const IProductCatalogue* catalogue);

    const std::string& Name() const { return record_.name; }
    const std::string& Description() const { return record_.description; }
    const std::string& Version() const { return record_.firmwareVersion; }
    std::int32_t ZorbusAddress() const { return record_.nodeId; }
    /// The type code; 19 before there is an identity.
    std::int32_t EnclosureType() const { return record_.enclosureType; }
    /// The type code as decimal text.
    std::string DeviceType() const { return std::to_string(record_.enclosureType); }
    std::string ProductQualifier() const { return std::to_string(record_.qualifier); }
    /// In the order of the slots where they were found first.
    const std::vector<SlotProduct>& GetProducts() const { return products_; }
    /// Fills in the board id per slot, 0 where there is no known board; returns the number of slots.
    std::int16_t GetSlotPops(std::vector<std::int32_t>& boardIds) const;

private:
    static constexpr std::int32_t kUnknownType = 19;

    std::shared_ptr<IProduct> FindProduct(std::int32_t boardId, const IProductCatalogue& catalogue) const;
    std::shared_ptr<IProduct> KeepOne(std::shared_ptr<IProduct> product, int slot);
    void GiveConnectors(IProduct& product) const;

    IErrorLog& errorLog_;
    NodeRecord record_;
    std::vector<SlotProduct> products_;
    std::vector<std::int32_t> slotBoardIds_;
};

}
