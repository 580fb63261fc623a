#pragma once

#include "comm/api/IDevice.h"
#include "ui/advanced/RegisterTransfer.h"

#include <memory>

namespace tarvex {

class Document;

/// The main window's hold on the link in use: it counts how its transfers end and makes sure that it stands. The device
/// itself is asked of the document each time.
class BoardLink {
public:
    explicit BoardLink(Document& document) : document_(document) {}

    /// Listens to the link in use; called whenever another one has been put in place.
    void BindDevice();
    /// The link in use, or none.
    IDevice* Device() const;
    /// Text naming the kind of link in use; empty when there is none.
    std::string DeviceType() const;
    bool IsDemo() const;
    bool IsConnected() const;
    /// Connects with the ids of the current product, unless the link stands already; true when it stands.
    bool Connect();
    /// True when the board answers: the first register of the current product is asked for.
    bool Verify();
    const TransferCounts& Counts() const { return counts_; }

private:
    Document& document_;
    TransferCounts counts_;
};

}
