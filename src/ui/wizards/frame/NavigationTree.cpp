#include "ui/wizards/frame/NavigationTree.h"

#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

constexpr std::array<const char*, 3> kChannelKeys{"Vexlon-Fx_Channel1", "Vexlon-Fx_Channel2", "Vexlon-Fx_Channel3"};

std::vector<TreeNode> Channels(const std::string& captionStart)
{
    std::vector<TreeNode> leaves;
    leaves.reserve(kChannelKeys.size());
    for (const char* key : kChannelKeys)
        leaves.push_back({key, captionStart + std::to_string(leaves.size() + 1)});
    return leaves;
}

}

std::vector<TreeNode> NavigationTreeOf(const std::string& product)
{
    if (product == "Vexlon" || product == "Ossary-Plus")
        return {{product, product}};
    if (ContainsIgnoringCase(product, "Vexlon-Fx"))
        return {{"Vexlon-Fx", "Vexlon-Fx", Channels("Vexlon-Fx Channel ")}};
    if (product == "Kestra-Fx")
        return {{product, product, {{"Destination 1", "Destination 1", Channels("Channel ")}}}};
    return {};
}

const TreeNode* FindNode(const std::vector<TreeNode>& nodes, const std::string& key)
{
    for (const TreeNode& node : nodes) {
        if (node.key == key)
            return &node;
        if (const TreeNode* found = FindNode(node.children, key))
            return found;
    }
    return nullptr;
}

bool IsFiberChannel(const std::string& key)
{
    return std::find(kChannelKeys.begin(), kChannelKeys.end(), key) != kChannelKeys.end();
}

}
