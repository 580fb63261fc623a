#pragma once

#include "base/Types.h"
#include "platform/hid/IHidServices.h"

namespace tarvex {

/// What a report descriptor says about the reports of its device.
struct ReportLayout {
    HidReportLengths lengths; ///< 0 in a direction without reports; a byte for the id counts even where none is sent
    bool numbered = false;    ///< reports begin with their id on the wire
};

/// Reads the descriptor of a HID device, which may hold anything: what follows an item that is cut off does not count,
/// and a length beyond 65535 is 65535.
ReportLayout ReadReportDescriptor(const Bytes& descriptor);

}
