#pragma once

#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/vexlon/VexlonBoard.h"
#include "ui/wizards/vexlon/VexlonCommands.h"
#include "ui/wizards/vexlon/VexlonMode.h"
#include "ui/wizards/vexlon/VexlonTarget.h"
#include "ui/wizards/vexlon/VexlonValues.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

/// What the scaler boards plug into the wizards' frame: the Vexlon board, and the three channels of a Vexlon-Fx, each
/// of which is a target of its own. Main makes it; the frame calls it.
class Vexlon : public IWizardProduct {
public:
    Vexlon() = default;
    Vexlon(const Vexlon&) = delete;
    Vexlon& operator=(const Vexlon&) = delete;

    WizardDescription Describe() override;
    void Attach(IWizardHost& host) override { board_.Attach(host); }
    bool Init(const std::shared_ptr<IProduct>&) override { return true; }
    void SetCurrentProduct(const std::string& product) override { target_.Show(product); }
    BoardImage& Image() override { return image_; }
    void NodeClicked(const std::string& key) override { target_.NodeClicked(key); }
    bool UpdateUI(std::int32_t kind, const std::string& name) override;

    std::optional<NoTarget> MissingTarget() override;
    ElementBounds Bounds(const std::string& element) override { return values_.Bounds(element); }
    std::int32_t ReadElement(const std::string& element) override { return values_.Read(element); }
    bool WriteElement(const std::string& element, std::int32_t value) override;
    std::string HelpPicture(const std::string& element) override;

    void Undo(std::int32_t code) override { mode_.Undo(code); }
    bool OpenFile(const std::string& path) override;
    void FileOpened() override { mode_.ForgetChanges(); }

private:
    /// What a menu entry does once the link stands and the registers hold what the board has.
    std::function<void()> OnBoard(std::function<void()> command);
    MenuEntry ResolutionMenu();
    MenuEntry RefreshMenu();

    VexlonBoard board_;
    VexlonMode mode_{board_};
    BoardImage image_{[](const RegisterObject&) { return kNoAspi; },
                      [this](const auto& failed) { mode_.BoardWasRead(failed); }};
    VexlonTarget target_{board_, mode_, image_};
    VexlonValues values_{board_};
    VexlonCommands commands_{board_};
};

}
