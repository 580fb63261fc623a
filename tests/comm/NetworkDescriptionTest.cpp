#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeWait.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

std::string Times(int count, const std::string& text)
{
    std::string all;
    for (int k = 0; k < count; ++k)
        all += text;
    return all;
}

TEST(NetworkDescription, TellsWhereItIsWrongAndHasNoPortsThen)
{
    const struct {
        std::string elements, told;
    } cases[] = {
        {"\n <Port number='x'/>", "Element Port: number \"x\" is no number in its range (line 2, column 2)"},
        {"<!-- > <Node/> ' -->\n<Port number='1'>\n\t<Node id='1' name='>'/>\n\t<Node id='1'/></Port>",
         "Element Node: there are two nodes 1 on the port (line 4, column 2)"},
        {"<Port number='1'/><Port number='2'/><Port number='2'/>", "there are two ports 2 (line 1, column 52)"},
        {"<Port number='1'><Node id='1'><![CDATA[<a>]]><Processors aspi='1'>\n<Parameter base='1' id='1' "
         "access='none'/></Processors></Node></Port>",
         "Element Parameter: access \"none\" is not known (line 2, column 1)"},
        {"<Fault operation='Ping'/>", "operation \"Ping\" is not known (line 1, column 16)"},
        {"<Wait milliseconds='1'/>", "no operation that can wait (line 1, column 16)"},
        {"<Port number='1'><Node id='1'><Slots>" + Times(32'768, "0 ") + "</Slots></Node></Port>",
         "Element Node: too many numbers (line 1, column 33)"},
        {"<Port number='1'>" + Times(70, "<a>") + Times(70, "</a>") + "</Port>", "deep"},
    };
    for (const auto& c : cases) {
        FakeFileSystem files;
        FakeWait wait;
        FakeErrorLog log;
        files.files["net"] = "<ZorbusNetwork>" + c.elements + "</ZorbusNetwork>";
        SimulatedNorvaneSystem library({"net", true, "", ""}, {&files, &wait, &log});
        ASSERT_EQ(log.entries.size(), 1U) << c.told;
        EXPECT_NE(log.entries[0].description.find(c.told), std::string::npos) << log.entries[0].description;
        ZoneHandle zone = kNoZone;
        EXPECT_EQ(library.OpenZone(1, 9600, kNorvaneTrue, zone), kNorvaneNotFound);
    }
}

}
}
