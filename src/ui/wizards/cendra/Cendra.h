#pragma once

#include "ui/wizards/cendra/CendraCopy.h"
#include "ui/wizards/cendra/CendraDiscovery.h"
#include "ui/wizards/cendra/CendraFiles.h"
#include "ui/wizards/cendra/CendraPulseWidth.h"
#include "ui/wizards/cendra/CendraTarget.h"
#include "ui/wizards/frame/SerialWizardProduct.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

/// What the boards in the slots of an enclosure, Cendra and Ossary, plug into the wizards' frame: every connector of
/// the enclosure is a target of its own. Main makes it; the frame calls it.
class Cendra : public SerialWizardProduct {
public:
    /// `settings` are those of the program and outlive this.
    Cendra(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs);

    WizardDescription Describe() override;
    void Attach(IWizardHost& host) override;
    bool Init(const std::shared_ptr<IProduct>&) override { return true; }
    void SetCurrentProduct(const std::string& product) override;
    void CatchUp() override;
    void NodeClicked(const std::string& key) override;
    bool UpdateUI(std::int32_t kind, const std::string& name) override;

    std::optional<NoTarget> MissingTarget() override;
    std::int32_t LargeStep(std::int32_t range) override;
    std::string HelpPicture(const std::string& element) override;

    bool OpenFile(const std::string& path) override { return files_.Open(path); }
    bool AddToFile(TarvexData& file) override { return files_.AddTo(file); }
    void FileSaved() override;
    void Unload() override;

private:
    /// Of the current connector.
    std::optional<std::int16_t> AspiOf(const RegisterObject& target) const override { return target_.OwnAspi(target); }
    static FlashSteps StepsOf(Cendra& product);
    FlashTexts TextsOfFlash();
    void ShowTree();

    CendraTarget target_;
    CendraDiscovery discovery_;
    CendraCopy copy_{target_};
    CendraFiles files_{target_};
    CendraPulseWidth pulse_{target_};
    std::string product_;
    std::string node_; ///< key of the current connector
};

}
