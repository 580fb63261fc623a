#pragma once

#include "base/Error.h"
#include "base/Event.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/frame/WizardFiles.h"
#include "ui/wizards/frame/WizardLink.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class IWizardView;

// What an operation with failed transfers raises.
inline constexpr std::int32_t kErrWriteFailed = 201;
inline constexpr std::int32_t kErrReadFailed = ObjectError(1);

/// What happens in a wizard, without a window: the current element, the bar that edits it, one step of undo, the link
/// and the data file, for whatever product is plugged in. The window owns it and tells it what the user did; it speaks
/// to hardware through the link that the document holds. Errors of what the user did are logged and shown; those of
/// Init and SetCurrentProduct reach the caller.
class WizardFrame : public IWizardHost {
public:
    /// `self` is the wizard as the document knows it.
    WizardFrame(IWizardView& self, IWizardFrameView& view, IWizardProduct& product, WizardServices services);
    WizardFrame(const WizardFrame&) = delete;
    WizardFrame& operator=(const WizardFrame&) = delete;

    const WizardDescription& Description() const { return description_; }
    /// Does what the user asked for, and lets the register window show what came of it; every handler of the window
    /// runs through this.
    void Attempt(const std::function<void()>& action);

    // What the document asks (see IWizardView).
    std::string ViewName() const;
    void SetCaption(const std::string& caption);
    bool Init(Document& document, const std::shared_ptr<IProduct>& product);
    void SetCurrentProduct(const std::string& product);
    void UpdateUI(std::int32_t kind, const std::string& name);
    void CommFailure() { link_.EnterFailureState(); }
    bool ConfirmClose();
    /// Lets go of board and document; without effect the second time.
    void Unload();

    /// The window has got the keyboard, which another view of the program, or nobody, had before.
    void Activated();

    // What the user does.
    void ElementClicked(const std::string& element);
    void BarChanged();
    void NodeClicked(const std::string& key);
    void Undo();
    void Open();
    void Save();
    void SaveAs();
    /// Ends the program unless the user wants the window to stay.
    void Quit();
    void OpenAdvancedView();

    // IWizardHost
    const WizardServices& Services() const override { return services_; }
    IWizardFrameView& View() override { return view_; }
    Document& TheDocument() override;
    IConfigController& Controller() override;
    IDevice& Device() override { return link_.Device(); }
    std::string PicturePath(const std::string& fileName) const override;
    bool CheckConnection() override { return link_.CheckConnection(); }
    bool EnsureLink() override;
    bool StillAnswers() override;
    void EnterFailureState() override { link_.EnterFailureState(); }
    bool Write(const std::string& source, const std::string& what, const std::function<void()>& writes) override;
    bool Read(const std::string& source, const std::string& what, const std::function<void()>& reads) override;
    int Failures() const override { return link_.Failures(); }
    bool MayDropEdits() override;
    std::shared_ptr<void> BeginProgress() override;
    const std::string& CurrentElement() const override { return current_; }
    bool IsCurrentSelected() const override;
    void SelectAgain() override;
    void OfferUndo(std::int32_t code) override;
    void Say(const std::string& text) override { view_.ShowMessage(text); }
    void TellOtherViews(std::int32_t kind, const std::string& name) override;
    void DropDataFile() override { files_.Drop(); }

    /// The link's end of the frame, whose handlers a test calls as a link would.
    WizardLink& Link() { return link_; }

private:
    bool Transfer(std::int32_t error, const std::string& source, const std::string& text,
                  const std::function<void()>& transfers);
    void Select(const std::string& element);
    void ReadAndShow(const std::string& element);
    void ShowElement(const std::string& element);
    void ShowTip(const std::string& element);
    void ShowRange(const std::string& element, std::int32_t value);
    void ShowValue();
    void ShowPosition(std::int32_t position);
    bool ApplyFile(const std::string& path);
    void OpenFile(const std::string& path);
    bool WriteAt(std::int32_t position);
    void UndoTo(std::int32_t position);
    void ShowFailure(const Error& failure);
    void ReadAgain();
    void LinkRecovered();

    IWizardView& self_;
    IWizardFrameView& view_;
    IWizardProduct& product_;
    WizardServices services_;
    WizardDescription description_;
    WizardLink link_;
    WizardFiles files_;
    Document* document_ = nullptr;
    std::string startCaption_;
    std::vector<ElementItem> elements_;

    /// Where the bar stood, for the next step of undo.
    struct BarHistory {
        std::int32_t undo = -1;       ///< a position of the bar, -1 for none, below that a code of the product
        std::int32_t selectedAt = -1; ///< the position at the latest selection
        std::int32_t last = -1;       ///< the position after the latest change, -1 right after a selection
    };

    std::string current_;
    BarHistory history_;
    bool reversed_ = false;
    bool appliesFile_ = false; ///< a file is being put onto the board
    bool fileLoaded_ = false;  ///< the registers were made from a data file since the last Open began

    std::vector<Subscription> subscriptions_;
};

}
