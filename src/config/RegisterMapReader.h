#pragma once

#include "base/Types.h"
#include "config/MapFile.h"
#include "config/RegisterMap.h"
#include "platform/xml/XmlDocument.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvex {

/// Builds one device aside from its elements in an init or data file. A reader is used once; its time grows with the
/// file only linearly.
class RegisterMapReader {
public:
    explicit RegisterMapReader(MapFile file) : file_(std::move(file)) {}

    /// The whole device. Raises the init-file error and the other errors of the file; nothing is kept then.
    DeviceMap Read(XmlElement component, XmlElement description);

private:
    /// Descriptions of the bits of one register, as they stand in the file; room for the widest register.
    using BitTexts = std::array<std::string_view, 24>;

    /// What one Register element holds, found in a single pass: the first child of each tag, and all of the last two.
    struct Parts {
        explicit Parts(XmlElement element);
        XmlElement address, name, description, defaultValue, value;
        std::vector<XmlElement> bits, dependencies;
    };

    void ReadIdentity(XmlElement component, XmlElement description);
    void ReadWordSize(XmlElement attributes);
    void ReadRegisterList(XmlElement list);
    std::shared_ptr<RegisterObject> ReadRegister(XmlElement element, std::int32_t baseAddress, std::int16_t index);
    void ReadBits(const Parts& parts, RegisterObject& target) const;
    void MarkBits(XmlElement bits, const Bits& positions, RegisterObject& target, BitTexts& descriptions) const;
    void ReadValue(const Parts& parts, RegisterObject& target) const;
    void ReadDefault(const Parts& parts, RegisterObject& target) const;
    void LinkDependencies();

    MapFile file_;
    std::int16_t wordSize_ = 1;
    DeviceMap device_;
    /// Register and name of the one it depends on, which may follow later in the file.
    std::vector<std::pair<std::shared_ptr<RegisterObject>, std::string_view>> dependencies_;
};

}
