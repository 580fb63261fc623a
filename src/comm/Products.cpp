#include "comm/Products.h"

#include "base/Error.h"

#include <cstddef>

namespace tarvex {

void EnclosureBoard::SetBoardID(std::int32_t id)
{
    if (boardId_ == 0)
        boardId_ = id;
}

std::vector<std::int16_t> EnclosureBoard::IProduct_channels()
{
    std::vector<std::int16_t> channels = connectors_;
    channels.push_back(0);
    return channels;
}

void EnclosureBoard::IProduct_Init(const std::vector<std::int16_t>& connectors, std::int16_t count)
{
    if (count < 0 || static_cast<std::size_t>(count) > connectors.size())
        RaiseRuntime(kErrSubscript, "EnclosureBoard::Init");
    connectors_ = std::vector<std::int16_t>(connectors.begin(), connectors.begin() + count);
}

}
