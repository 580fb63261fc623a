#include "cli/RandomInputRun.h"

namespace tarvex {
namespace {

using RandomInput = RandomInputRun;

TEST_P(RandomInput, NeitherCrashesNorHangs) { Run(); }

INSTANTIATE_TEST_SUITE_P(
    Windows, RandomInput,
    ::testing::Values(Place{"RegisterWindow", {"-demo"}, "ProductMenu_0"}, Place{"Network", {}, "ProductMenu_5", true},
                      Place{"Vexlon", {"-wVexlon", "-demo"}}, Place{"VexlonFx", {"-wVexlon-Fx", "-demo"}},
                      Place{"Cendra", {"-wCendra"}, {}, true}, Place{"OssaryDemo", {"-wOssary", "-demo"}},
                      Place{"AnalogTx", {"-wOssary_Plus"}, {}, true}),
    [](const auto& each) { return std::string(each.param.name); });

}
}
