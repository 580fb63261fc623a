#pragma once

#include "base/Types.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

/// The identity that a HID device reports; the version number is the device's release number (0x0102 is 1.2).
struct HidAttributes {
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;
    std::uint16_t versionNumber = 0;
};

/// One HID interface of the system, known without opening it.
struct HidInterface {
    std::string path;
    HidAttributes attributes;
    std::string productString;
};

/// Length in bytes of the longest report of each direction, the report id byte included.
struct HidReportLengths {
    std::uint16_t input = 0;
    std::uint16_t output = 0;
};

/// What came of a request: the bytes that the system took and the report that it delivered, empty when none came.
struct HidExchange {
    std::size_t written = 0;
    Bytes answer;
};

/// An open HID device; destroying it closes it. Failures are results, never errors: LastError tells the reason. The
/// operations block their caller until they are done; while they do, the windows live.
class IHidBoard {
public:
    virtual ~IHidBoard() = default;

    /// None when they cannot be read.
    virtual std::optional<HidAttributes> Attributes() = 0;
    virtual HidReportLengths ReportLengths() = 0;
    /// Empty when the device has none.
    virtual std::string ProductString() = 0;
    /// False once the node that was opened is gone, also when another one has taken its name.
    virtual bool IsPresent() = 0;

    /// Sends one output report as it is. The number of bytes that the system took; 0 when sending failed.
    virtual std::size_t Write(const Bytes& report) = 0;
    /// One transfer with an answer: drops the reports that still wait from earlier, sends the request and waits at most
    /// `limit` for one input report of at most `answerLength` bytes. Other programs are kept off the board from here
    /// to EndExchange, so that no answer is theirs; it is called after every Exchange.
    virtual HidExchange Exchange(const Bytes& request, std::size_t answerLength, std::chrono::milliseconds limit) = 0;
    /// Waits for a further report of the exchange under way; empty when none came.
    virtual Bytes ReadNext(std::size_t answerLength, std::chrono::milliseconds limit) = 0;
    virtual void EndExchange() = 0;

    /// errno of the last operation that failed: ETIMEDOUT when no answer came in time, ENODEV when a read failed
    /// without one, 0 before any failure.
    virtual int LastError() const = 0;
};

/// The system's HID devices.
class IHidServices {
public:
    virtual ~IHidServices() = default;

    /// All present HID interfaces in the system's order; none when they could not be asked for.
    virtual std::optional<std::vector<HidInterface>> Enumerate() = 0;
    /// Opens a device for reading and writing, shared with other programs; none on failure. An open that is refused for
    /// want of rights is tried again for up to 200 ms: just after plugging in, rights arrive late.
    virtual std::unique_ptr<IHidBoard> Open(const std::string& path) = 0;
    /// errno of the last Open that failed; 0 before any.
    virtual int LastError() const = 0;
};

}
