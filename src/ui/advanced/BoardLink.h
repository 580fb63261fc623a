#pragma once

#include "base/Event.h"
#include "base/IErrorLog.h"
#include "comm/api/IDevice.h"
#include "platform/zorbus/CommSettings.h"
#include "ui/advanced/RegisterTransfer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvex {

class Document;
class HIDDevice;
class SerialZorbus;

/// The main window's hold on the link in use: it counts how its transfers end and makes sure that it stands. The device
/// itself is asked of the document each time.
class BoardLink {
public:
    /// `beginBusy` gives a token that keeps all user input away while it lives. The file of the access rule lies in the
    /// program folder.
    BoardLink(Document& document, IErrorLog& errorLog, const std::string& programFolder,
              std::function<std::shared_ptr<void>()> beginBusy)
        : document_(document), errorLog_(errorLog), programFolder_(programFolder), beginBusy_(std::move(beginBusy))
    {}

    /// Counts anew on the link in use; called whenever another one has been put in place. The demo board reports no
    /// failures.
    void BindDevice();
    /// A serial link has been connected, or has tried to.
    Event<BoardLink> Connected;
    /// The link in use, or none.
    IDevice* Device() const;
    /// Text naming the kind of link in use; empty when there is none.
    std::string DeviceType() const;
    bool IsDemo() const;
    /// True for the link to enclosures: which one is meant, the controller's pid says.
    bool IsSerial() const;
    bool IsConnected() const;
    /// Product id of the board, or address of the enclosure, that the link stands to; none while it does not stand.
    std::optional<std::int32_t> ConnectedId() const;
    /// True when the board that the link is connected to has been unplugged.
    bool IsGone() const;
    /// A paragraph for the end of a message when a board is there and its last opening was refused; else empty.
    std::string WhyRefused() const;
    /// Connects with the ids that the controller has, unless the link stands already; true when it stands. On the
    /// serial network a link that stands to another enclosure is left for the one that the ids name.
    bool Connect();
    /// Closes the link unless it is the demo board: another product is another board.
    void Release();
    /// True when the board answers: the first register of the current product is asked for.
    bool Verify();
    /// Makes the serial link use other settings; true when the enclosure answers then.
    bool UseSettings(const CommSettings& settings);
    TransferCounts& Counts() { return counts_; }

private:
    template <class Link> void CountTransfersOf(Link& link);
    HIDDevice* UsbLink() const;
    SerialZorbus* SerialLink() const;
    /// An error that the link raises is logged and counts as no.
    bool Succeeds(const std::function<bool()>& attempt);

    Document& document_;
    IErrorLog& errorLog_;
    const std::string& programFolder_;
    std::function<std::shared_ptr<void>()> beginBusy_;
    TransferCounts counts_;
    std::vector<Subscription> subscriptions_;
};

}
