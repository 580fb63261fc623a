#pragma once

#include "base/Error.h"
#include "comm/api/IDevice.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tarvex {

/// A board of a test: answers reads from `memory`, keeps what is written there, and records every call. It fails on
/// demand, as a board that does not answer (byte count 0) or as a link that raises.
class FakeDevice : public IDevice {
public:
    using Place = std::pair<std::int32_t, std::int32_t>; ///< base address and parameter id

    enum class Kind { Read, Write };

    struct Transfer {
        Kind kind;
        std::int32_t baseAddress;
        std::int32_t parameterId;
        Bytes bytes; ///< what was written or delivered
        std::int16_t aspi;

        bool operator==(const Transfer&) const = default;
    };

    // What it answers.
    std::map<Place, Bytes> memory;      ///< a register that is not in it reads as zeros
    std::set<Place> mute;               ///< reads deliver nothing, writes are lost
    std::optional<std::size_t> deliver; ///< a read delivers so many bytes, FF beyond those asked for
    std::map<Place, Error> raiseAt;     ///< transfers of one register raise it
    std::function<void(const Transfer&)> onTransfer = [](const Transfer&) {
    }; ///< at the end of each, as a link's events
    std::string name = "Fake device";
    std::string type = "Fake device";
    std::string browseAnswer;
    bool connected = true;
    bool canConnect = true;
    bool foundByIds = true; ///< or by its path only
    bool verifies = true;

    // What it saw.
    std::vector<Transfer> transfers;
    std::vector<std::string> calls; ///< connections and the like, by operation name

    /// The parameter ids of all transfers of a kind, in order.
    std::vector<std::int32_t> Parameters(Kind kind) const
    {
        std::vector<std::int32_t> ids;
        for (const Transfer& transfer : transfers)
            if (transfer.kind == kind)
                ids.push_back(transfer.parameterId);
        return ids;
    }

private:
    std::int32_t IDevice_ProductID() override { return 0; }
    std::int32_t IDevice_ProductVendorID() override { return 0; }
    std::string IDevice_productName() override { return name; }
    std::string IDevice_DeviceType() override { return type; }
    bool IDevice_IsConnected() override { return connected; }
    std::string IDevice_DevicePath() override { return {}; }
    std::string IDevice_FirmwareVersion() override { return "v0.0"; }

    void IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data, std::int16_t byteCount,
                         std::int16_t aspi) override
    {
        const Place place{baseAddress, parameterId};
        RaiseAsAsked(place);
        Bytes bytes(data.begin(), data.begin() + byteCount);
        if (!mute.contains(place))
            memory[place] = bytes;
        Record({Kind::Write, baseAddress, parameterId, std::move(bytes), aspi});
    }

    Bytes IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                           std::int16_t aspi) override
    {
        const Place place{baseAddress, parameterId};
        RaiseAsAsked(place);
        const Bytes bytes = mute.contains(place) ? Bytes{} : Answer(place, static_cast<std::size_t>(byteCount));
        byteCount = static_cast<std::int16_t>(bytes.size());
        Record({Kind::Read, baseAddress, parameterId, bytes, aspi});
        return bytes;
    }

    std::int32_t IDevice_connect(std::int32_t, std::int32_t) override { return Connect("connect", foundByIds); }
    std::int32_t IDevice_ConnectToPath(const std::string&) override { return Connect("ConnectToPath", true); }
    std::int32_t IDevice_Disconnect() override
    {
        calls.emplace_back("Disconnect");
        connected = false;
        return 0;
    }
    std::string IDevice_Browse() override { return browseAnswer; }
    bool IDevice_VerifyCommunications(std::int32_t, std::int32_t) override
    {
        calls.emplace_back("VerifyCommunications");
        return verifies;
    }

    std::int32_t Connect(const char* operation, bool isFound)
    {
        calls.emplace_back(operation);
        connected = canConnect && isFound;
        return connected ? 1 : 0;
    }

    void RaiseAsAsked(const Place& place) const
    {
        if (const auto found = raiseAt.find(place); found != raiseAt.end())
            throw Error(found->second);
    }

    Bytes Answer(const Place& place, std::size_t wanted) const
    {
        const auto found = memory.find(place);
        Bytes bytes = found == memory.end() ? Bytes{} : found->second;
        bytes.resize(wanted);
        bytes.resize(deliver.value_or(wanted), 0xFF);
        return bytes;
    }

    void Record(const Transfer& transfer)
    {
        transfers.push_back(transfer);
        onTransfer(transfer);
    }
};

}
