#include "config/MinInitVersion.h"

namespace tarvex {

std::string MinInitVersionForProduct(const std::string& product)
{
    // The channels of the fibre board are devices of their own and share its minimum.
    if (product == "Vexlon" || product.starts_with("Vexlon-Fx"))
        return "2.0.0";
    return product == "Ossary" ? "2.4.10" : "2.4.0";
}

}
