#pragma once

#include "comm/IProduct.h"
#include "ui/wizards/cendra/CendraTarget.h"

#include <memory>
#include <string>

namespace tarvex {

class RegisterObject;
class TarvexData;

/// The data files of an enclosure: the settings of every connector, read from the boards and put onto them.
class CendraFiles {
public:
    explicit CendraFiles(CendraTarget& target) : target_(target) {}

    /// Puts a file onto the boards of the enclosure in use, when it is of an enclosure like that one. A register that
    /// fails is told, and the next one is written. False when nothing was applied, which the user has been told.
    bool Open(const std::string& path);
    /// Adds the enclosure with the settings of all connectors; false when the link is down. Raises 0x80040001 when a
    /// board does not deliver them.
    bool AddTo(TarvexData& file);

private:
    bool Apply(const std::string& path);
    void UseMapOf(const std::string& path) const;
    std::shared_ptr<Enclosure> EnclosureIn(const TarvexData& file) const;
    bool IsCompatible(const TarvexData& file, const Enclosure& saved) const;
    bool WriteProduct(const TarvexData& file, const Enclosure& saved, IProduct& product);
    bool WriteConnector(const TarvexData& file, const Enclosure& saved, IProduct& product, ChannelDirection side,
                        std::int16_t connector);
    bool WriteRegister(RegisterObject& each, std::int32_t value, std::int16_t connector);

    CendraTarget& target_;
};

}
