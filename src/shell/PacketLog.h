#pragma once

#include "comm/api/IPacketLog.h"
#include "platform/IClock.h"
#include "platform/IFileSystem.h"

#include <memory>
#include <string>

namespace tarvex {

/// The packet log of one run: a text file held open from start-up to the end of the document. While it is closed, which
/// includes that it could not be opened, nothing is written.
class PacketLog : public IPacketLog {
public:
    PacketLog(IFileSystem& files, IClock& clock) : files_(files), clock_(clock) {}

    /// Opens prefix + instance handle + ".txt" for appending, created when missing; on failure the log stays closed.
    void OpenPacketLog(const std::string& prefix, std::int64_t instanceHandle) noexcept;
    void Close() noexcept;
    /// The first line of a run. Ids are written in hexadecimal.
    void LogHeader(const std::string& deviceType, std::int32_t productId, std::int32_t vendorId) noexcept;

    bool IsPacketLogging() const noexcept override { return stream_ != nullptr; }
    void LogPacket(PacketDirection direction, const Bytes& packet, std::size_t count, int attempts) noexcept override;
    void LogPacketError(PacketDirection direction, std::string_view text) noexcept override;
    void LogText(std::string_view line) noexcept override;

private:
    /// Makes the line only while a log is open.
    template <class MakeLine> void WriteLine(const MakeLine& makeLine) noexcept;

    IFileSystem& files_;
    IClock& clock_;
    std::unique_ptr<ITextStream> stream_;
};

}
