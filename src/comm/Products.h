#pragma once

#include "comm/IProduct.h"
#include "comm/Links.h"

namespace tarvex {

/// What the two enclosure boards share: everything but name and size of a slot.
class EnclosureBoard : public IProduct {
public:
    /// Sets the board id while it is still 0.
    void SetBoardID(std::int32_t id);

private:
    std::string IProduct_FunctionalComponent() override { return "Enclosure IO Board"; }
    std::vector<std::string> IProduct_GetCommLinks() override { return {kSerialDeviceType, ""}; }
    bool IProduct_IsIOBoard() override { return true; }
    std::int32_t IProduct_BoardID() override { return boardId_; }
    std::int32_t IProduct_Direction() override { return static_cast<std::int32_t>(ChannelDirection::Source); }
    std::vector<std::int16_t> IProduct_channels() override;
    std::int16_t IProduct_Count() override { return static_cast<std::int16_t>(connectors_.size()); }
    void IProduct_Init(const std::vector<std::int16_t>& connectors, std::int16_t count) override;

    std::int32_t boardId_ = 0;
    std::vector<std::int16_t> connectors_;
};

/// The twisted-pair board: four connectors a slot.
class CendraIOBoard : public EnclosureBoard {
    std::string IProduct_Name() override { return "Cendra"; }
    std::int16_t IProduct_ConnectorsPerSlot() override { return 4; }
};

/// The Ossary board: sixteen connectors a slot.
class Ossary : public EnclosureBoard {
    std::string IProduct_Name() override { return "Ossary"; }
    std::int16_t IProduct_ConnectorsPerSlot() override { return 16; }
};

}
