#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

/// Which connectors a board serves.
enum class ChannelDirection : std::int32_t { Source = 0, Destination = 1, Both = 2 };

/// One kind of I/O board in an enclosure: its name and links, how many connectors a slot of it serves, and the
/// connectors that it serves in the enclosure at hand.
class IProduct {
public:
    virtual ~IProduct() = default;

    std::string Name() { return IProduct_Name(); }
    std::string FunctionalComponent() { return IProduct_FunctionalComponent(); }
    /// Names of the links it supports, with an empty last entry.
    std::vector<std::string> GetCommLinks() { return IProduct_GetCommLinks(); }
    bool IsIOBoard() { return IProduct_IsIOBoard(); }
    /// 0 until it is set.
    std::int32_t BoardID() { return IProduct_BoardID(); }
    std::int16_t ConnectorsPerSlot() { return IProduct_ConnectorsPerSlot(); }
    std::int32_t Direction() { return IProduct_Direction(); }
    /// Connector numbers, with one 0 after the last.
    std::vector<std::int16_t> channels() { return IProduct_channels(); }
    /// Number of connectors.
    std::int16_t Count() { return IProduct_Count(); }
    /// Stores the first `count` connectors; raises 9 when there are fewer.
    void Init(const std::vector<std::int16_t>& connectors, std::int16_t count) { IProduct_Init(connectors, count); }

private:
    virtual std::string IProduct_Name() = 0;
    virtual std::string IProduct_FunctionalComponent() = 0;
    virtual std::vector<std::string> IProduct_GetCommLinks() = 0;
    virtual bool IProduct_IsIOBoard() = 0;
    virtual std::int32_t IProduct_BoardID() = 0;
    virtual std::int16_t IProduct_ConnectorsPerSlot() = 0;
    virtual std::int32_t IProduct_Direction() = 0;
    virtual std::vector<std::int16_t> IProduct_channels() = 0;
    virtual std::int16_t IProduct_Count() = 0;
    virtual void IProduct_Init(const std::vector<std::int16_t>& connectors, std::int16_t count) = 0;
};

}
