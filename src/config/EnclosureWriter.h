#pragma once

#include "comm/IProduct.h"
#include "platform/xml/XmlDocument.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tarvex {

class Enclosure;
class IConfigController;
class IDevice;
class IProgress;
class RegisterObject;

/// Writes one enclosure into a data file, whose elements it updates in their places. It reads the values of the
/// channels from the boards; the controller's registers, which may hold edits, stay as they are.
class EnclosureWriter {
public:
    /// The file holds the component of the controller's device; raises 5 when it does not.
    EnclosureWriter(XmlElement root, IConfigController& controller, IDevice& device, IProgress* progress);

    /// Writes identity, products, channels and slots. Raises 0x80040001 when a board does not deliver a register whole;
    /// errors of the link reach the caller. What was written until then stays in the document.
    void Write(const Enclosure& enclosure);

private:
    void WriteProduct(XmlElement enclosureElement, const Enclosure& enclosure, IProduct& product);
    void WriteSide(XmlElement productElement, ChannelDirection side, const Enclosure& enclosure, IProduct& product);
    void WriteChannel(XmlElement channelElement, std::int16_t channel, const Enclosure& enclosure);
    std::int32_t ReadRegister(const RegisterObject& target, std::int16_t aspi);
    bool BelongsToDevice(IProduct& product) const;

    XmlElement root_;
    XmlElement description_; ///< of the controller's device
    std::vector<std::shared_ptr<RegisterObject>> registers_;
    IDevice& device_;
    IProgress* progress_;
};

}
