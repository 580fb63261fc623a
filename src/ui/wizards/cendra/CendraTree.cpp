#include "ui/wizards/cendra/CendraTree.h"

#include "base/Numbers.h"
#include "comm/Enclosure.h"

#include <limits>

namespace tarvex {

namespace {

constexpr const char* kRootKey = "root";
constexpr const char* kProductKeyEnd = "product";
constexpr const char* kDigits = "0123456789";

void AddLeaves(TreeNode& product, const std::string& direction, const std::vector<std::int16_t>& connectors)
{
    for (const std::int16_t connector : connectors) {
        const std::string caption = direction + " " + std::to_string(connector);
        product.children.push_back({product.key + " " + caption, caption});
    }
}

TreeNode ProductNode(IProduct& product, std::size_t number)
{
    TreeNode node{std::to_string(number) + kProductKeyEnd, product.Name()};
    std::vector<std::int16_t> connectors = product.channels();
    connectors.resize(static_cast<std::size_t>(product.Count()));
    const auto direction = static_cast<ChannelDirection>(product.Direction());
    if (direction != ChannelDirection::Destination)
        AddLeaves(node, "Source", connectors);
    if (direction != ChannelDirection::Source)
        AddLeaves(node, "Destination", connectors);
    return node;
}

}

std::vector<TreeNode> CendraTreeOf(const Enclosure& enclosure)
{
    TreeNode root{kRootKey, enclosure.Name()};
    for (const Enclosure::SlotProduct& each : enclosure.GetProducts())
        root.children.push_back(ProductNode(*each.product, root.children.size() + 1));
    return {root};
}

std::string FirstLeafOf(const std::vector<TreeNode>& tree)
{
    for (const TreeNode& root : tree)
        for (const TreeNode& product : root.children)
            if (!product.children.empty())
                return product.children.front().key;
    return {};
}

std::optional<CendraLeaf> LeafOfKey(const std::string& key)
{
    const auto product = TryParseDecimal(key.substr(0, key.find_first_not_of(kDigits)));
    const auto connector = TryParseDecimal(key.substr(key.find_last_not_of(kDigits) + 1));
    if (!product || *product < 1 || !connector || *connector < 1 ||
        *connector > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return CendraLeaf{static_cast<std::size_t>(*product - 1), static_cast<std::int16_t>(*connector)};
}

}
