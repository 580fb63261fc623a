#include "Fuzz.h"

#include "platform/hid/ReportDescriptor.h"

namespace tarvex {

void Check(std::string_view input)
{
    const Bytes descriptor(input.begin(), input.end());
    const ReportLayout layout = ReadReportDescriptor(descriptor);
    Require(layout.lengths.input != 1 && layout.lengths.output != 1, "a report holds more than its id");

    Bytes longer = descriptor;
    longer.insert(longer.end(), {0xC0, 0xB4, 0x75, 0x08, 0x95});
    const ReportLayout more = ReadReportDescriptor(longer);
    Require(more.lengths.input >= layout.lengths.input && more.lengths.output >= layout.lengths.output,
            "what follows never makes a report shorter");
}

}
