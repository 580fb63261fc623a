#include "usb/Board.h"

#include <gtest/gtest.h>
#include <hidapi/hidapi.h>

namespace tarvex {

TEST(Machine, AnswersABareRead)
{
    Board board;
    board.Set({0x0451, 0x20}, {0x5A});
    board.Plug();
    hid_device* device = hid_open(0x12C5, 0x0A51, nullptr);
    ASSERT_NE(device, nullptr);
    Bytes request = {2, 0x51, 4, 0x20, 0, 0x21, 0};
    request.resize(64);
    EXPECT_EQ(hid_write(device, request.data(), request.size()), 64);
    Bytes answer(64);
    EXPECT_EQ(hid_read_timeout(device, answer.data(), answer.size(), 1000), 64);
    Bytes expected = request;
    expected[6] = 0x5A;
    EXPECT_EQ(answer, expected);
    EXPECT_EQ(board.TakeReceived(), std::vector<Bytes>{request});
    hid_close(device);
    board.Unplug();
    board.Plug();
}

}
