#pragma once

#include "comm/api/IDevice.h"
#include "model/Bitset.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class RegisterObject;

/// A named setting of a board as its user sees it, made of fields of one or more registers. It stores no value; reading
/// and writing it transfers the registers behind its bitsets.
class TarvexProperty {
public:
    /// Builds one bitset for each element of the three arrays. Raises 0x8004000C when their lengths differ and 9 when
    /// they are empty; errors of a bitset reach the caller and leave the property without it.
    void Init(std::string name, const std::vector<std::string>& bitsetNames,
              const std::vector<std::shared_ptr<RegisterObject>>& registers,
              const std::vector<std::string>& bitStrings);

    const std::string& Name() const { return name_; }
    std::int16_t BitsetCount() const { return static_cast<std::int16_t>(bitsets_.size()); }

    const std::string& WidgetType() const { return widgetType_; }
    /// One of "None", "Boolean", "Range", "ColorText"; raises 502 for any other text.
    void WidgetType(std::string text);
    const std::string& helpTip() const { return helpTip_; }
    void helpTip(std::string text) { helpTip_ = std::move(text); }
    const std::string& Description() const { return description_; }
    void Description(std::string text) { description_ = std::move(text); }
    const std::string& ImageFilepath() const { return imageFilepath_; }
    void ImageFilepath(std::string text) { imageFilepath_ = std::move(text); }
    /// Questions to the user that belong to the setting, in the init file's order.
    const std::vector<std::string>& Prompts() const { return prompts_; }
    void AddPrompt(std::string text) { prompts_.push_back(std::move(text)); }

    /// Raises 501 outside 0 to BitsetCount - 1.
    std::shared_ptr<Bitset> GetBitset(std::int16_t index) const;
    /// The first bitset of exactly this name, or none.
    std::shared_ptr<Bitset> GetBitsetByName(std::string_view name) const;
    /// The register names behind the bitsets, in their order, repeats included; raises 9 when there are none.
    std::int16_t GetConstituents(std::vector<std::string>& registerNames) const;

    /// Transfers every bitset's register in order. Device errors reach the caller.
    void ReadValue(IDevice& device);
    void WriteValue(IDevice& device);

private:
    std::string name_;
    std::vector<std::shared_ptr<Bitset>> bitsets_;
    std::string widgetType_ = "None";
    std::string helpTip_;
    std::string description_;
    std::string imageFilepath_;
    std::vector<std::string> prompts_;
};

}
