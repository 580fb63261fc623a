#include "comm/Products.h"

#include "comm/FunctionalComponent.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

using Channels = std::vector<std::int16_t>;
using Texts = std::vector<std::string>;

TEST(Products, BoardsKeepTheirConnectorsAndTheFirstId)
{
    EXPECT_EQ(CendraIOBoard().ConnectorsPerSlot(), 4);
    EXPECT_EQ(Ossary().ConnectorsPerSlot(), 16);
    CendraIOBoard board;
    EXPECT_EQ(board.GetCommLinks(), (Texts{"SerialZorbus", ""}));
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

TEST(FunctionalComponent, ReadsOnlyTheElementsItIsFor)
{
    XmlDocument document;
    ASSERT_TRUE(document.LoadText("<Root><Option><Product name='A'><CommLink><Name>Demo</Name></CommLink>"
                                  "<Other/><CommLink><Name>SerialZorbus</Name></CommLink></Product>"
                                  "<Note name='N'/><Product name='B'/></Option></Root>"));
    const XmlElement option = document.Root().Child("Option");
    const XmlElement product = option.Child("Product");
    EXPECT_EQ(FunctionalComponent::ParseProducts(option), (Texts{"A", "B"}));
    EXPECT_EQ(FunctionalComponent::GetProductCommLinks(product), (Texts{"Demo", "SerialZorbus"}));
    EXPECT_EQ(FunctionalComponent::GetProductCommLinks(product.NextSame()), Texts{});
    for (const XmlElement& other : {document.Root(), product, XmlElement()})
        EXPECT_EQ(FunctionalComponent::ParseProducts(other), Texts{});
    for (const XmlElement& other : {document.Root(), option, XmlElement()})
        EXPECT_EQ(FunctionalComponent::GetProductCommLinks(other), Texts{});
}

}
}
