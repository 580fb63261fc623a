#pragma once

#include "ui/wizards/frame/IWizardFrameView.h"

#include <string>
#include <vector>

namespace tarvex {

/// The navigation tree of a product: one node for a single board, the channels of a fiber product below its name;
/// empty for any other product.
std::vector<TreeNode> NavigationTreeOf(const std::string& product);

/// The node of a key anywhere in the tree; none when it is not there.
const TreeNode* FindNode(const std::vector<TreeNode>& nodes, const std::string& key);

/// True for the key of a channel, which is the name of a device.
bool IsFiberChannel(const std::string& key);

}
