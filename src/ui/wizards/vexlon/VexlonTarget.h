#pragma once

#include "ui/wizards/vexlon/VexlonBoard.h"
#include "ui/wizards/vexlon/VexlonMode.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

/// The board, or the channel of one, that the wizard works on: shows it in the tree, changes it, connects it and takes
/// over what its registers hold.
class VexlonTarget {
public:
    VexlonTarget(VexlonBoard& board, VexlonMode& mode) : board_(board), mode_(mode) {}

    /// Shows the tree of a product, with the controller's device as the target, and reads that.
    void Show(const std::string& product);
    /// Makes a channel the target; the old one comes back when the new one does not answer. Raises 201 when that does
    /// not answer either.
    void NodeClicked(const std::string& key);

    /// Device name of the target.
    const std::string& Name() const { return name_; }
    /// True while the tree stands at a node with channels below it.
    bool NeedsChannel() const;
    /// The link was lost: the board may come back with other values.
    void Lost() { unread_ = true; }
    /// Reads all registers where not all were read when the board became the target, or it was lost since.
    void CatchUp();

private:
    bool Connect(const std::string& device);
    void Reconnect();
    void RestoreLast();
    void TakeOver();
    std::optional<std::string> ReadRegisters(int failuresTolerated);
    bool ReadOne(const std::string& name);

    VexlonBoard& board_;
    VexlonMode& mode_;
    std::vector<TreeNode> tree_;
    std::string name_;
    bool unread_ = false; ///< the registers do not hold what the board has
};

}
