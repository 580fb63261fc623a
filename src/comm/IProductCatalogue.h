#pragma once

#include "comm/IProduct.h"

#include <cstdint>
#include <memory>

namespace tarvex {

/// Knows which product the board with a board id is.
class IProductCatalogue {
public:
    virtual ~IProductCatalogue() = default;

    /// A new product object; none for an unknown board id. Raises an error for a board whose description is no good.
    virtual std::shared_ptr<IProduct> GetProduct(std::int32_t boardId, std::int32_t enclosureType) const = 0;
};

}
