#include "comm/Products.h"

#include "comm/FunctionalComponent.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

using Channels = std::vector<std::int16_t>;
using Texts = std::vector<std::string>;

TEST(Products, BoardsDifferInNameAndSlot)
{
    CendraIOBoard cendra;
    Ossary ossary;
    EXPECT_EQ(cendra.Name(), "Cendra");
    EXPECT_EQ(cendra.ConnectorsPerSlot(), 4);
    EXPECT_EQ(ossary.Name(), "Ossary");
    EXPECT_EQ(ossary.ConnectorsPerSlot(), 16);
    for (IProduct* board : {static_cast<IProduct*>(&cendra), static_cast<IProduct*>(&ossary)}) {
        EXPECT_EQ(board->FunctionalComponent(), "Enclosure IO Board");
        EXPECT_EQ(board->GetCommLinks(), (Texts{"SerialZorbus", ""}));
        EXPECT_TRUE(board->IsIOBoard());
        EXPECT_EQ(board->Direction(), 0);
    }
}

TEST(Products, BoardIdIsSetOnce)
{
    Ossary board;
    EXPECT_EQ(board.BoardID(), 0);
    board.SetBoardID(0xC020);
    board.SetBoardID(0xC0A0);
    EXPECT_EQ(board.BoardID(), 0xC020);
}

TEST(Products, InitReplacesTheConnectors)
{
    CendraIOBoard board;
    EXPECT_EQ(board.Count(), 0);
    EXPECT_EQ(board.channels(), Channels{0});
    board.Init({1, 2, 3, 4}, 4);
    EXPECT_EQ(board.channels(), (Channels{1, 2, 3, 4, 0}));
    board.Init({9, 8, 7}, 2);
    EXPECT_EQ(board.channels(), (Channels{9, 8, 0}));
    EXPECT_EQ(board.Count(), 2);
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
