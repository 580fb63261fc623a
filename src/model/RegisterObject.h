#pragma once

#include "base/Types.h"
#include "comm/api/IDevice.h"
#include "model/PackedTexts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// Access to one register bit, as flags that can be combined.
enum class AccessFlag : std::int16_t { None = 0, ReadOnly = 1, ReadWrite = 2, WriteOnly = 4, Reserved = 128 };

constexpr bool HasFlag(std::int16_t flags, AccessFlag flag) { return (flags & static_cast<std::int16_t>(flag)) != 0; }

/// The program's image of one register of a board: address, bit values, access flags and descriptions, a mark for a
/// value that the board does not have yet, and the registers that are transferred after it. The controller owns it;
/// bitsets and views share it. It speaks to hardware only in ReadValue and WriteValue.
class RegisterObject {
public:
    /// An 8-bit register with all bits clear.
    RegisterObject() = default;

    /// Sets address, width (a multiple of 8 up to 24) and texts, clears bits, flags and bit descriptions; the
    /// dependencies stay. Raises 12 for a width whose values do not fit a signed 32-bit number, and for none.
    void Init(std::int32_t baseAddress, std::int32_t address, std::int16_t reference, std::int16_t bitCount,
              std::string name, std::string description);

    const std::string& Name() const { return name_; }
    const std::string& Description() const { return description_; }
    std::int32_t BaseAddress() const { return baseAddress_; }
    std::int32_t Address() const { return address_; }
    /// Position in its register list of the init file.
    std::int16_t Reference() const { return reference_; }
    std::int16_t MaxBits() const { return bitCount_; }
    std::int32_t MaxValue() const { return static_cast<std::int32_t>((std::uint32_t{1} << bitCount_) - 1); }
    std::int32_t MinValue() const { return 0; }

    /// True when the value was changed since the last transfer.
    bool IsDirty() const { return dirty_; }
    void IsDirty(bool dirty) { dirty_ = dirty; }

    std::int32_t value() const { return static_cast<std::int32_t>(bits_); }
    /// Sets the value and marks the register changed; the value it has already changes nothing. Raises 10 outside
    /// MinValue to MaxValue.
    void value(std::int32_t newValue);

    /// Reads the register and then its dependencies from the board; returns the value. The changed mark is taken away
    /// first. Bytes that the board does not deliver leave their bits alone, surplus bytes are passed over. A register
    /// that is being transferred already is passed over, so registers may depend on each other in a circle. Device
    /// errors reach the caller.
    std::int32_t ReadValue(IDevice& device, std::int16_t aspi);
    /// Writes the register and then its dependencies to the board and takes the changed mark away. Device errors
    /// reach the caller and leave the mark. Circles as for ReadValue.
    void WriteValue(IDevice& device, std::int16_t aspi);

    /// Sets and clears flags of one bit; raises 10 for an index at or above MaxBits, 9 for a negative one.
    void ChangeBitFlags(std::int16_t bit, std::int16_t set, std::int16_t clear);
    /// Raises 9 for an index outside the register.
    void SetBitFlags(std::int16_t bit, std::int16_t flags);
    /// Raises 10 for an index outside the register, as do the next five. The changed mark stays.
    void SetBit(std::int16_t bit, bool set);
    bool GetBit(std::int16_t bit) const;
    std::int16_t GetBitFlags(std::int16_t bit) const;
    /// A text ends at its first zero character.
    void SetBitDescription(std::int16_t bit, std::string_view text);
    std::string GetBitDescription(std::int16_t bit) const;
    /// Sets the descriptions of all bits at once, from bit 0 up; those beyond the list become empty, texts beyond the
    /// register's width are passed over.
    void DescribeBits(std::span<const std::string_view> texts);

    /// Adds a register that is read and written after this one; adding it twice transfers it twice.
    void AddDependency(std::shared_ptr<RegisterObject> other);
    const std::vector<std::shared_ptr<RegisterObject>>& Dependencies() const { return dependencies_; }
    /// Drops all dependencies; the owner calls it so that registers that depend on each other in a circle can die.
    void ClearDependencies() { dependencies_.clear(); }

private:
    class Transfer;
    static constexpr std::int16_t kMostBits = 31;

    std::uint8_t& FlagsAt(std::int16_t bit, const char* source);
    std::int16_t ByteCount() const { return static_cast<std::int16_t>((MaxBits() + 7) / 8); }
    void ReadAlone(IDevice& device, std::int16_t aspi);
    void WriteAlone(IDevice& device, std::int16_t aspi);
    void CheckIndex(std::int16_t bit, const char* source, const char* what) const;

    std::int32_t baseAddress_ = 0;
    std::int32_t address_ = 0;
    std::uint32_t bits_ = 0;
    std::int16_t reference_ = 8;
    bool dirty_ = false;
    bool transferring_ = false;
    std::string name_;
    std::string description_;
    std::array<std::uint8_t, kMostBits> flags_{}; ///< of each bit: every access flag fits eight bits
    std::uint8_t bitCount_ = 8;
    PackedTexts bitDescriptions_;
    std::vector<std::shared_ptr<RegisterObject>> dependencies_;
};

}
