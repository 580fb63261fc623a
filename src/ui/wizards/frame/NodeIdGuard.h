#pragma once

#include "config/IConfigController.h"

#include <cstdint>

namespace tarvex {

/// Hands the node id back to the controller, which takes that of the init file whenever it makes a device or opens a
/// file, also when that fails.
class NodeIdGuard {
public:
    explicit NodeIdGuard(IConfigController& controller) : controller_(controller), nodeId_(controller.pid()) {}
    ~NodeIdGuard() { controller_.pid(nodeId_); }
    NodeIdGuard(const NodeIdGuard&) = delete;
    NodeIdGuard& operator=(const NodeIdGuard&) = delete;

private:
    IConfigController& controller_;
    const std::int32_t nodeId_;
};

}
