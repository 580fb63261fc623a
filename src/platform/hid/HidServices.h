#pragma once

#include "platform/hid/CallThread.h"
#include "platform/hid/IHidServices.h"

namespace tarvex {

/// The HID devices of this system, by the HID library. Every call that may block is made on one thread of its own, as
/// one job for each operation, while the caller waits through IWait. It outlives the boards that it opened. For one
/// caller's thread; an operation that is called while another still runs, as from a handler that the waiting let in,
/// throws std::logic_error, but IsPresent, the attributes and the last errors can be asked for at any time.
class HidServices : public IHidServices {
public:
    explicit HidServices(IWait& wait) : thread_(wait) {}
    ~HidServices() override;

    std::optional<std::vector<HidInterface>> Enumerate() override;
    /// ENOTSUP for a device without input or without output reports. On boards without report ids the first byte of a
    /// report still is the place of the id: what is sent there does not matter, and what is received there is 0.
    std::unique_ptr<IHidBoard> Open(const std::string& path) override;
    int LastError() const override { return lastError_; }

private:
    int lastError_ = 0;
    CallThread thread_;
};

}
