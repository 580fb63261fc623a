#pragma once

#include "ui/wizards/cendra/CendraCopy.h"
#include "ui/wizards/cendra/CendraDiscovery.h"
#include "ui/wizards/cendra/CendraFiles.h"
#include "ui/wizards/cendra/CendraPulseWidth.h"
#include "ui/wizards/cendra/CendraTarget.h"
#include "ui/wizards/frame/BitsetElements.h"
#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/frame/ISerialWizardDialogs.h"
#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/frame/SerialWizardFlash.h"
#include "ui/wizards/frame/SerialWizardMenu.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

/// What the boards in the slots of an enclosure, Cendra and Ossary, plug into the wizards' frame: every connector of
/// the enclosure is a target of its own. Main makes it; the frame calls it.
class Cendra : public IWizardProduct {
public:
    /// `settings` are those of the program and outlive this.
    Cendra(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs);
    Cendra(const Cendra&) = delete;
    Cendra& operator=(const Cendra&) = delete;

    WizardDescription Describe() override;
    void Attach(IWizardHost& host) override;
    bool Init(const std::shared_ptr<IProduct>&) override { return true; }
    void SetCurrentProduct(const std::string& product) override;
    void DeviceBound(const std::shared_ptr<IDevice>& device) override { port_.DeviceBound(device); }
    void MenusEnabled(bool enabled) override { port_.MenusEnabled(enabled); }
    BoardImage& Image() override { return image_; }
    void CatchUp() override;
    void NodeClicked(const std::string& key) override;
    bool UpdateUI(std::int32_t kind, const std::string& name) override;

    std::optional<NoTarget> MissingTarget() override;
    ElementBounds Bounds(const std::string& element) override { return elements_.Bounds(element); }
    std::int32_t ReadElement(const std::string& element) override { return elements_.Read(element); }
    bool WriteElement(const std::string& element, std::int32_t value) override;
    std::string ValueText(const std::string& element, std::int32_t position) override;
    std::int32_t LargeStep(std::int32_t range) override;
    std::string HelpPicture(const std::string& element) override;
    std::string UnreadMessage(const std::string& element) override;

    bool OpenFile(const std::string& path) override { return files_.Open(path); }
    bool AddToFile(TarvexData& file) override { return files_.AddTo(file); }
    void FileSaved() override;
    void Unload() override;

private:
    FlashSteps StepsOfFlash();
    FlashTexts TextsOfFlash();
    void ShowTree();

    CendraTarget target_;
    BoardImage image_; ///< of the current connector
    BitsetElements elements_;
    std::unique_ptr<ISerialWizardDialogs> dialogs_;
    SerialWizardMenu port_;
    SerialWizardFlash flash_;
    CendraDiscovery discovery_;
    CendraCopy copy_{target_};
    CendraFiles files_{target_};
    CendraPulseWidth pulse_{target_};
    std::string product_;
    std::string node_; ///< key of the current connector
};

}
