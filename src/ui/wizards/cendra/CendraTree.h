#pragma once

#include "ui/wizards/frame/IWizardFrameView.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class Enclosure;

/// What the key of a leaf says: which product of the enclosure, counted from 0, and which connector.
struct CendraLeaf {
    std::size_t product = 0;
    std::int16_t connector = 0;
};

/// The navigation tree of an enclosure: its products, and below each of them its connectors, once for each direction
/// that the product serves.
std::vector<TreeNode> CendraTreeOf(const Enclosure& enclosure);

/// Key of the first connector; empty when there is none.
std::string FirstLeafOf(const std::vector<TreeNode>& tree);

/// What a key stands for; none for the enclosure itself and for a product.
std::optional<CendraLeaf> LeafOfKey(const std::string& key);

}
