#pragma once

#include <string>

namespace tarvex {

/// The lowest file version that a product needs, by its device or wizard name. Data files are saved with it.
std::string MinInitVersionForProduct(const std::string& product);

}
