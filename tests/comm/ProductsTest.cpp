#include "comm/Products.h"

#include "support/ExpectError.h"

namespace tarvex {
namespace {

using Channels = std::vector<std::int16_t>;

TEST(Products, BoardsKeepTheirConnectorsAndTheFirstId)
{
    CendraIOBoard board;
    board.SetBoardID(0xC020);
    board.SetBoardID(0xC0A0);
    EXPECT_EQ(board.BoardID(), 0xC020);
    EXPECT_EQ(board.channels(), Channels{0});
    board.Init({1, 2, 3, 4}, 4);
    board.Init({9, 8, 7}, 2);
    EXPECT_EQ(board.channels(), (Channels{9, 8, 0}));
    ExpectError([&] { board.Init({1}, 2); }, kErrSubscript);
    ExpectError([&] { board.Init({1}, -1); }, kErrSubscript);
    EXPECT_EQ(board.Count(), 2);
}

}
}
