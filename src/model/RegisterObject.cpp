#include "model/RegisterObject.h"

#include "base/Error.h"
#include "base/Numbers.h"

#include <algorithm>
#include <utility>

namespace tarvex {

namespace {

constexpr int kByteBits = 8;
constexpr int kErrRegister = 10;

}

/// The registers that one operation is transferring: the one asked for, its dependency in work, that one's dependency,
/// and so on. A list instead of recursion, so that a chain of dependencies may be as long as the device has registers.
class RegisterObject::Transfer {
public:
    using Operation = void (RegisterObject::*)(IDevice& device, std::int16_t aspi);

    Transfer(IDevice& device, Operation operation) : device_(device), operation_(operation) {}
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;
    ~Transfer()
    {
        for (const Step& step : steps_)
            step.target->transferring_ = false;
    }

    /// Transfers a register with everything that depends on it; `whenDone` is told each register once its own
    /// dependencies are through.
    template <class WhenDone> void Run(RegisterObject& target, std::int16_t aspi, WhenDone whenDone)
    {
        Enter(target, nullptr, aspi);
        while (!steps_.empty()) {
            Step& step = steps_.back();
            if (step.next < step.target->dependencies_.size()) {
                const std::shared_ptr<RegisterObject> dependency = step.target->dependencies_[step.next++];
                Enter(*dependency, dependency, kNoAspi);
                continue;
            }
            whenDone(*step.target);
            step.target->transferring_ = false;
            steps_.pop_back();
        }
    }

private:
    struct Step {
        RegisterObject* target;
        std::shared_ptr<RegisterObject> kept; ///< keeps a dependency while it is in work
        std::size_t next = 0;
    };

    void Enter(RegisterObject& target, std::shared_ptr<RegisterObject> kept, std::int16_t aspi)
    {
        if (target.transferring_)
            return;
        steps_.push_back({&target, std::move(kept)});
        target.transferring_ = true;
        (target.*operation_)(device_, aspi);
    }

    IDevice& device_;
    Operation operation_;
    std::vector<Step> steps_;
};

void RegisterObject::Init(std::int32_t baseAddress, std::int32_t address, std::int16_t reference, std::int16_t bitCount,
                          std::string name, std::string description)
{
    if (bitCount < 1 || bitCount > kMostBits)
        RaiseRuntime(kErrValueOutOfRange, "RegisterObject::Init");
    baseAddress_ = baseAddress;
    address_ = address;
    reference_ = reference;
    name_ = std::move(name);
    description_ = std::move(description);
    bits_ = 0;
    bitCount_ = static_cast<std::uint8_t>(bitCount);
    flags_.fill(0);
    bitDescriptions_ = {};
    dirty_ = false;
}

void RegisterObject::value(std::int32_t newValue)
{
    if (newValue == value())
        return;
    if (newValue < MinValue() || newValue > MaxValue())
        Raise(kErrRegister, "RegisterObject::LetValue",
              "Value " + std::to_string(newValue) + " out of range for register with " + std::to_string(MaxBits()) +
                  " bits");
    bits_ = static_cast<std::uint32_t>(newValue);
    dirty_ = true;
}

std::int32_t RegisterObject::ReadValue(IDevice& device, std::int16_t aspi)
{
    Transfer(device, &RegisterObject::ReadAlone).Run(*this, aspi, [](RegisterObject&) {});
    return value();
}

void RegisterObject::WriteValue(IDevice& device, std::int16_t aspi)
{
    Transfer(device, &RegisterObject::WriteAlone).Run(*this, aspi, [](RegisterObject& done) { done.dirty_ = false; });
}

void RegisterObject::ReadAlone(IDevice& device, std::int16_t aspi)
{
    dirty_ = false;
    std::int16_t delivered = ByteCount();
    const Bytes bytes = device.ReadFrom(baseAddress_, address_, delivered, aspi);
    const int usable = std::min({static_cast<int>(delivered), static_cast<int>(bytes.size()), int{ByteCount()}});
    for (int k = 0; k < usable; ++k) {
        const int shift = kByteBits * k;
        bits_ = (bits_ & ~(0xFFU << shift)) | std::uint32_t{bytes[static_cast<std::size_t>(k)]} << shift;
    }
    bits_ &= static_cast<std::uint32_t>(MaxValue());
}

void RegisterObject::WriteAlone(IDevice& device, std::int16_t aspi)
{
    Bytes bytes;
    for (int k = 0; k < ByteCount(); ++k)
        bytes.push_back(static_cast<std::uint8_t>(bits_ >> kByteBits * k & 0xFF));
    device.WriteTo(baseAddress_, address_, bytes, ByteCount(), aspi);
}

void RegisterObject::ChangeBitFlags(std::int16_t bit, std::int16_t set, std::int16_t clear)
{
    if (bit >= MaxBits())
        CheckIndex(bit, "RegisterObject::SetFlags", "Flag");
    std::uint8_t& flags = FlagsAt(bit, "RegisterObject::ChangeBitFlags");
    flags = static_cast<std::uint8_t>((flags | set) & ~clear);
}

void RegisterObject::SetBitFlags(std::int16_t bit, std::int16_t flags)
{
    FlagsAt(bit, "RegisterObject::SetBitFlags") = static_cast<std::uint8_t>(flags);
}

std::uint8_t& RegisterObject::FlagsAt(std::int16_t bit, const char* source)
{
    if (bit < 0 || bit >= MaxBits())
        RaiseRuntime(kErrSubscript, source);
    return flags_[static_cast<std::size_t>(bit)];
}

void RegisterObject::SetBit(std::int16_t bit, bool set)
{
    CheckIndex(bit, "RegisterObject::SetBit", "Flag");
    const std::uint32_t mask = 1U << bit;
    bits_ = set ? bits_ | mask : bits_ & ~mask;
}

bool RegisterObject::GetBit(std::int16_t bit) const
{
    CheckIndex(bit, "RegisterObject::GetBit", "Flag");
    return (bits_ >> bit & 1U) != 0;
}

std::int16_t RegisterObject::GetBitFlags(std::int16_t bit) const
{
    CheckIndex(bit, "RegisterObject::GetBitFlag", "Flag");
    return flags_[static_cast<std::size_t>(bit)];
}

void RegisterObject::SetBitDescription(std::int16_t bit, std::string_view text)
{
    CheckIndex(bit, "RegisterObject::SetBitDescription", "Bit");
    bitDescriptions_.Set(static_cast<std::size_t>(bit), text);
}

void RegisterObject::DescribeBits(std::span<const std::string_view> texts)
{
    bitDescriptions_.Assign(texts.first(std::min<std::size_t>(texts.size(), bitCount_)));
}

std::string RegisterObject::GetBitDescription(std::int16_t bit) const
{
    CheckIndex(bit, "RegisterObject::GetBitDescription", "Bit");
    return std::string(bitDescriptions_.Get(static_cast<std::size_t>(bit)));
}

void RegisterObject::AddDependency(std::shared_ptr<RegisterObject> other)
{
    if (!other)
        RaiseRuntime(kErrInvalidCall, "RegisterObject::AddDependency");
    dependencies_.push_back(std::move(other));
}

void RegisterObject::CheckIndex(std::int16_t bit, const char* source, const char* what) const
{
    if (bit < 0 || bit >= MaxBits())
        Raise(kErrRegister, source, std::string(what) + " index, " + std::to_string(bit) + ", out of range");
}

}
