#pragma once

#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/vexlon/VexlonBoard.h"
#include "ui/wizards/vexlon/VexlonMode.h"

#include <string>
#include <vector>

namespace tarvex {

/// The board, or the channel of one, that the wizard works on: shows it in the tree, changes it, connects it and takes
/// over what its registers hold.
class VexlonTarget {
public:
    VexlonTarget(VexlonBoard& board, VexlonMode& mode, BoardImage& image) : board_(board), mode_(mode), image_(image) {}

    /// Shows the tree of a product, with the controller's device as the target, and reads that.
    void Show(const std::string& product);
    /// Makes a channel the target; the old one comes back when the new one does not answer. Raises 201 when that does
    /// not answer either.
    void NodeClicked(const std::string& key);

    /// Device name of the target.
    const std::string& Name() const { return name_; }
    /// True while the tree stands at a node with channels below it.
    bool NeedsChannel() const;

private:
    bool Connect(const std::string& device);
    void Reconnect();
    void RestoreLast();
    void TakeOver();

    VexlonBoard& board_;
    VexlonMode& mode_;
    BoardImage& image_;
    std::vector<TreeNode> tree_;
    std::string name_;
};

}
