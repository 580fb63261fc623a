#pragma once

#include "platform/files/Descriptor.h"
#include "platform/hid/IHidServices.h"

struct hid_device_;

namespace tarvex {

/// An open hidraw node, held twice: by the HID library for the reports, and by a descriptor of our own, by which it is
/// locked and known again. Its operations block; closing it does not.
class HidNode {
public:
    /// Null with the reason in `error`: of the system, ENOTSUP when the device has no reports in one of the directions.
    /// A refusal for want of rights is met by trying again for up to 200 ms.
    static std::unique_ptr<HidNode> Open(const std::string& path, int& error);

    std::optional<HidAttributes> Attributes() const { return attributes_; }
    HidReportLengths ReportLengths() const { return lengths_; }
    const std::string& ProductString() const { return productString_; }
    bool IsPresent() const;
    int LastError() const { return lastError_; }

    /// Keeps the other programs that lock off the board; waits at most 6 s for them, then fails with EBUSY. True,
    /// too, when it is locked already.
    bool Lock();
    void Unlock();
    /// Drops the reports that wait; false when the device is gone.
    bool DropWaiting();
    /// The bytes that the system took, the first included; 0 on failure.
    std::size_t Send(const Bytes& report);
    /// The next report, empty when none came within the limit or the device is gone.
    Bytes Receive(std::size_t length, std::chrono::milliseconds limit);

private:
    using Handle = std::unique_ptr<hid_device_, void (*)(hid_device_*)>;
    HidNode(const std::string& path, Descriptor own);
    int Complete();
    void Identify();
    int ReadReport(std::uint8_t* data, std::size_t length, int limit);

    std::string path_;
    Descriptor own_;
    Handle device_;
    HidReportLengths lengths_;
    std::size_t idBytes_ = 1; ///< of the id in front of a report on the wire
    std::optional<HidAttributes> attributes_;
    std::string productString_;
    int lastError_ = 0;
};

}
