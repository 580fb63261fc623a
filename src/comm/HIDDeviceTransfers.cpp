#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Errors.h"
#include "comm/HIDDevice.h"
#include "comm/api/IPacketLog.h"

#include <algorithm>
#include <cerrno>
#include <limits>

namespace tarvex {

namespace {

constexpr const char* kReadFrom = "HIDDevice::ReadFrom";
constexpr const char* kWriteTo = "HIDDevice::WriteTo";
constexpr std::chrono::milliseconds kAnswerLimit{1000};
constexpr int kMaxComparisons = 3;
constexpr int kMaxVerifyAttempts = 3;
constexpr std::uint8_t kVerifyValue = 0x80;

void CheckFits(const I2CPacket& packet, std::size_t length, const char* source)
{
    if (ReportSize(packet) > length)
        Raise(kErrPacketTooLong, source,
              "Attempt to write READ Request with too much data of " + std::to_string(ReportSize(packet)) +
                  " bytes.  Max is " + std::to_string(length));
}

/// Lets other programs at the board again, however an exchange ends.
class ExchangeEnd {
public:
    explicit ExchangeEnd(IHidBoard& board) : board_(board) {}
    ~ExchangeEnd() { board_.EndExchange(); }
    ExchangeEnd(const ExchangeEnd&) = delete;
    ExchangeEnd& operator=(const ExchangeEnd&) = delete;

private:
    IHidBoard& board_;
};

}

void HIDDevice::IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data,
                                std::int16_t byteCount, std::int16_t aspi)
{
    CheckMayTransfer(kWriteTo, "Cannot write packet to ", aspi);
    I2CPacket packet;
    packet.Init(baseAddress, parameterId, data, ToByte(byteCount, kWriteTo), kWidthCodeOneByte);
    CheckFits(packet, lengths_.output, kWriteTo);

    const Bytes report = MakeReport(kWriteReportId, packet, lengths_.output);
    const std::shared_ptr<IHidBoard> board = board_;
    const std::size_t written = board->Write(report);
    NoteSending(*board, written);
    log_.LogPacket(PacketDirection::Sent, report, report.size(), static_cast<int>(written));
    if (written == 0)
        CountFailure();
    (written == 0 ? WriteFailure : WriteSuccess).Raise(0, 0);
}

Bytes HIDDevice::IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                                  std::int16_t aspi)
{
    CheckMayTransfer(kReadFrom, "Cannot read packet from ", aspi);
    const std::uint8_t wanted = ToByte(byteCount, kReadFrom);
    I2CPacket packet;
    packet.Init(baseAddress, parameterId, Bytes(wanted), wanted, kWidthCodeOneByte);
    CheckFits(packet, lengths_.input, kReadFrom);
    CheckFits(packet, lengths_.output, kReadFrom);

    InputReport input(lengths_.input);
    const Answer answer = Ask(packet, input);
    byteCount = 0;
    if (answer == Answer::Received)
        return TakeAnswer(input, wanted, byteCount);
    FailRead();
    return Bytes(answer == Answer::NotSent ? 0 : wanted);
}

bool HIDDevice::IDevice_VerifyCommunications(std::int32_t baseAddress, std::int32_t parameterId)
{
    log_.LogText("Verifying Communications on sigProc=" + ToHex(baseAddress) + " and param=" + ToHex(parameterId));
    if (!board_)
        return false;
    std::int16_t byteCount = 1;
    ReadFrom(baseAddress, parameterId, byteCount, kNoAspi);
    bool verified = false;
    int attempts = 0;
    for (; !verified && attempts < kMaxVerifyAttempts && !sendTimedOut_; ++attempts)
        verified = TryRegister(baseAddress, parameterId);
    if (!verified)
        Disconnect();
    log_.LogText((verified ? "Communications verified after " : "ERROR: Communication verification failed after ") +
                 std::to_string(attempts) + " tries");
    return verified;
}

/// Writes a value and reads it back. A link that fails is closed, so that the next attempt opens it anew.
bool HIDDevice::TryRegister(std::int32_t baseAddress, std::int32_t parameterId)
{
    connect(attributes_.productId, attributes_.vendorId);
    failureCount_ = 0;
    std::int16_t byteCount = 1;
    WriteTo(baseAddress, parameterId, {kVerifyValue}, byteCount, kNoAspi);
    Bytes bytes;
    if (!sendTimedOut_)
        bytes = ReadFrom(baseAddress, parameterId, byteCount, kNoAspi);
    if (failureCount_ != 0 || bytes.empty() || bytes.front() == 0) {
        Disconnect();
        return false;
    }
    byteCount = 1;
    ReadFrom(baseAddress, parameterId, byteCount, kNoAspi);
    return true;
}

void HIDDevice::CheckMayTransfer(const char* source, const char* what, std::int16_t aspi) const
{
    if (!board_)
        Raise(kErrNotConnected, source, std::string(what) + kHidDeviceType + " because not connected.");
    if (aspi != kNoAspi)
        Raise(kErrUnexpectedAspi, source, "ASPI is not expected parameter");
}

void HIDDevice::NoteSending(IHidBoard& board, std::size_t written)
{
    sendTimedOut_ = written == 0 && board.LastError() == ETIMEDOUT;
}

void HIDDevice::CountFailure()
{
    if (failureCount_ < std::numeric_limits<std::int16_t>::max())
        ++failureCount_;
}

void HIDDevice::FailRead()
{
    CountFailure();
    ReadFailure.Raise(0, 0);
}

/// Sends the request of a packet and receives its answer.
HIDDevice::Answer HIDDevice::Ask(const I2CPacket& packet, InputReport& input)
{
    const Bytes request = MakeReport(kReadReportId, packet, lengths_.output);
    const std::shared_ptr<IHidBoard> board = board_;
    const ExchangeEnd end(*board);
    const HidExchange exchange = board->Exchange(request, input.Buffer().size(), kAnswerLimit);
    NoteSending(*board, exchange.written);
    if (exchange.written == 0)
        return Answer::NotSent;
    if (exchange.answer.empty()) {
        log_.LogPacketError(PacketDirection::Received,
                            "Rx Error. Could not read an Input Report " + std::to_string(kWriteReportId) +
                                ". GetLastError code: " + std::to_string(board->LastError()));
        return Answer::None;
    }
    input.Receive(exchange.answer);
    return AwaitOwnAnswer(*board, request, packet, input);
}

/// Reads on past answers that are for other registers. What follows the last one compared is read, so that it does not
/// wait any longer, and logged, but not taken.
HIDDevice::Answer HIDDevice::AwaitOwnAnswer(IHidBoard& board, const Bytes& request, const I2CPacket& packet,
                                            InputReport& input)
{
    bool isOwn = input.IsAnswerTo(request);
    for (int pass = 1; !isOwn && pass <= kMaxComparisons; ++pass) {
        log_.LogPacketError(PacketDirection::Received, "Read address does not match requested address.");
        log_.LogPacket(PacketDirection::Sent, request, request.size(), packet.size());
        log_.LogText("Retrying Rx: try # " + std::to_string(pass));
        input.Receive(board.ReadNext(input.Buffer().size(), kAnswerLimit));
        isOwn = pass < kMaxComparisons && input.IsAnswerTo(request);
    }
    log_.LogPacket(PacketDirection::Received, input.Buffer(), input.Buffer().size(), static_cast<int>(input.Count()));
    return isOwn ? Answer::Received : Answer::Foreign;
}

/// The data of an accepted answer. One too short for a packet is given up without an event; one that declares more data
/// than were received, or none where some were asked for, is a failed read.
Bytes HIDDevice::TakeAnswer(const InputReport& input, std::size_t wanted, std::int16_t& byteCount)
{
    I2CPacket answer;
    if (!input.ToPacket(answer))
        return Bytes(wanted);
    if (!answer.HoldsDeclaredData() || (answer.dataSize() == 0 && wanted > 0)) {
        FailRead();
        return Bytes(wanted);
    }
    byteCount = answer.dataSize();
    Bytes bytes = byteCount == 0 ? Bytes{} : answer.data();
    bytes.resize(static_cast<std::size_t>(answer.size()));
    ReadSuccess.Raise(0, 0);
    return bytes;
}

}
