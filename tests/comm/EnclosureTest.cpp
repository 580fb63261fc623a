#include "comm/Enclosure.h"
#include "comm/CalculateASPI.h"
#include "comm/IProductCatalogue.h"
#include "comm/Products.h"
#include "model/RegisterObject.h"
#include "support/ExpectError.h"
#include "support/FakeErrorLog.h"

namespace tarvex {
namespace {

using Numbers = std::vector<std::int32_t>;

/// Boards C4A0 and C4B0 are Cendra, C020 is Ossary; BAD has a description that is no good.
class FakeCatalogue : public IProductCatalogue {
public:
    std::shared_ptr<IProduct> GetProduct(std::int32_t boardId, std::int32_t) const override
    {
        if (boardId == 0xBAD)
            Raise(1001, "FakeCatalogue", "no class");
        std::shared_ptr<EnclosureBoard> board;
        if (boardId == 0xC4A0 || boardId == 0xC4B0)
            board = std::make_shared<CendraIOBoard>();
        else if (boardId == 0xC020)
            board = std::make_shared<Ossary>();
        if (board)
            board->SetBoardID(boardId);
        return board;
    }
};

TEST(CalculateASPI, FindsTheProcessorOfARegister)
{
    struct Case {
        std::int16_t connector;
        const char* name;
        std::int32_t type;
        std::int16_t aspi;
    };
    for (const Case& each :
         {Case{3, "Red_Skew", 1, 16}, Case{3, "Green_Skew", 1, 17}, Case{3, "Blue_Skew", 1, 18},
          Case{3, "Color_Peak", 1, 16}, Case{3, "Color_Gain", 1, 16}, Case{3, "green_skew", 1, -1},
          Case{3, "Green_Skew", 24, 16}, Case{3, "Green_Skew", 17, 3}, Case{0, "Green_Skew", 17, -1},
          Case{-5, "Green_Skew", 24, -1}, Case{4096, "Blue_Skew", 1, 32762}, Case{32767, "", 17, 32767}}) {
        RegisterObject target;
        target.Init(0xC4, 0x11, 0, 8, each.name, "");
        EXPECT_EQ(CalculateASPI(each.connector, &target, each.type), each.aspi) << each.name << " " << each.type;
    }
    const RegisterObject nameless;
    EXPECT_EQ(CalculateASPI(3, nullptr, 24), -1);
    ExpectError([&] { CalculateASPI(4097, &nameless, 24); }, kErrOverflow);
}

TEST(Enclosure, GivesEachBoardTheConnectorsOfItsSlots)
{
    struct Case {
        Numbers slots;
        Numbers kept;
        std::vector<std::string> products; ///< key, name and connectors
    };
    const FakeCatalogue catalogue;
    for (const Case& each : {Case{{0xC4A0, 0, 0xC4A0}, {0xC4A0, 0, 0xC4A0}, {"0 Cendra 1 2 3 4 9 10 11 12 0"}},
                             Case{{0, 0xC4B0, 0xC4A0}, {0, 0xC4B0, 0xC4B0}, {"1 Cendra 5 6 7 8 9 10 11 12 0"}},
                             Case{{0xC4A0, 0xBAD, 0x77, 0xC020},
                                  {0xC4A0, 0, 0, 0xC020},
                                  {"0 Cendra 1 2 3 4 0", "3 Ossary 49 50 51 52 53 54 55 56 57 58 59 60 61 62 63 64 0"}},
                             Case{{}, {}, {}}}) {
        FakeErrorLog log;
        Enclosure enclosure(log);
        enclosure.SetNodeBasics({0x1A2B, 1, 0, "hall", "Rack A", "2.10"});
        enclosure.DefineSlotPops(each.slots, static_cast<std::int16_t>(each.slots.size()), &catalogue);
        std::vector<std::string> products;
        for (const auto& [slot, product] : enclosure.GetProducts()) {
            products.push_back(slot + " " + product->Name());
            for (const std::int16_t connector : product->channels())
                products.back() += " " + std::to_string(connector);
        }
        Numbers kept;
        EXPECT_EQ(enclosure.GetSlotPops(kept), static_cast<std::int16_t>(each.slots.size()));
        EXPECT_EQ(kept, each.kept);
        EXPECT_EQ(products, each.products);
        EXPECT_EQ(log.entries.size(), each.slots.size() == 4 ? 1U : 0U);
        enclosure.DefineSlotPops({0xC020}, -1, &catalogue);
        enclosure.DefineSlotPops({0xC020}, 1, nullptr);
        EXPECT_EQ(enclosure.GetProducts().size(), products.size());
        ExpectError([&] { enclosure.DefineSlotPops({0xC020}, 2, &catalogue); }, kErrSubscript);
        enclosure.SetNodeBasics({});
        EXPECT_TRUE(enclosure.GetProducts().empty());
    }
}

}
}
