#pragma once

#include "config/IProgress.h"
#include "shell/IWizardView.h"
#include "ui/common/BusyState.h"
#include "ui/wizards/frame/IWizardFrameView.h"
#include "ui/wizards/frame/WizardFrame.h"

#include <QMainWindow>
#include <QMap>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

class QFrame;
class QLabel;
class QProgressBar;
class QTextBrowser;

namespace tarvex {

class AdjustBar;
class ElementList;
class PictureTile;
class WizardMenus;
class WizardTree;

/// What a wizard's window is built on; main owns all of it.
struct WizardWindowServices {
    ProgramState& state;
    IFileSystem& files;
    IClock& clock;
    IUserPrompts& prompts;
    IErrorLog& errorLog;
    IWait& wait;
    BusyState& busy;
};

/// The window of a product wizard: element list, bar, help, tree, menus and status bar, the same for every product. It
/// builds widgets, forwards input to the frame and shows what that says. The document owns it.
class WizardWindow : public QMainWindow, public IWizardView, private IWizardFrameView, private IProgress {
public:
    WizardWindow(std::unique_ptr<IWizardProduct> product, WizardWindowServices services);
    ~WizardWindow() override;

    // IWizardView
    std::string ViewName() override { return frame_.ViewName(); }
    void SetCaption(const std::string& caption) override { frame_.SetCaption(caption); }
    bool Init(IConfigController& controller, std::shared_ptr<IDevice> device, Document& document,
              std::shared_ptr<IProduct> product) override;
    void SetCurrentProduct(const std::string& product) override { frame_.SetCurrentProduct(product); }
    void ShowView() override { show(); }
    void HideView() override { hide(); }
    void FocusView() override;
    void Unload() override;
    bool ConfirmClose() override { return frame_.ConfirmClose(); }
    void UpdateUI(std::int32_t kind, const std::string& name) override { frame_.UpdateUI(kind, name); }
    void CommFailure(const std::string&) override { frame_.CommFailure(); }

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // IWizardFrameView
    void ShowElements(const std::vector<ElementItem>& elements) override;
    std::string SelectedElement() const override;
    void SelectElement(const std::string& name) override;
    void ShowBar(const BarState& bar) override;
    BarState Bar() const override;
    void MoveBar(std::int32_t position) override;
    void EnableBar(bool enabled) override;
    void ShowValueText(const std::string& text, TextTone tone) override;
    void ShowDescription(const std::string& text) override;
    void ShowPicture(const std::string& path) override;
    void ShowHelpPicture(const std::string& path) override;
    void ShowHelpTip(const std::string& richText) override;
    void ShowHelpTipText(const std::string& text) override;
    void ShowTitle(const std::string& caption) override;
    void ShowMessage(const std::string& text) override;
    void ShowPanel(const std::string& key, const std::string& text) override;
    void ShowConnection(const std::string& picture, const std::string& meaning) override;
    IProgress& Progress() override { return *this; }
    void ShowTree(const std::vector<TreeNode>& roots) override;
    void SelectNode(const std::string& key) override;
    void ShowTreeChecks(bool shown) override;
    std::vector<std::string> CheckedNodes() const override;
    void EnableEntry(const std::string& name, bool enabled) override;
    void BlockEntry(const std::string& name, bool blocked) override;
    void CheckEntry(const std::string& name, bool checked) override;
    bool IsEntryChecked(const std::string& name) const override;
    void CaptionEntry(const std::string& name, const std::string& caption) override;
    std::string EntryCaption(const std::string& name) const override;

    // IProgress
    void IProgress_SetRange(std::int32_t steps, std::int32_t start) override;
    void IProgress_TickProgress(std::int32_t steps) override;
    void IProgress_Show(bool visible) override;

    WizardServices FrameServices();
    void BuildMenus();
    void BuildPage();
    QWidget* BuildNavigation();
    QWidget* BuildHelp();
    QFrame* BuildAdjustment();
    void BuildStatusBar();
    void ConnectControls();
    void ShowVersion();
    void Activated();

    WizardWindowServices services_;
    std::unique_ptr<IWizardProduct> product_;
    WizardFrame frame_;
    std::unique_ptr<WizardMenus> menus_;
    WizardTree* TreeView1 = nullptr;
    ElementList* ListView1 = nullptr;
    AdjustBar* HScroll1 = nullptr;
    PictureTile* Picture1 = nullptr;
    PictureTile* HelpPicture = nullptr;
    QTextBrowser* HelpTipPanel = nullptr;
    QLabel* StatusText = nullptr;
    QLabel* Description = nullptr;
    QLabel* Label1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QLabel* message_ = nullptr;
    PictureTile* connected_ = nullptr;
    QMap<QString, QLabel*> panels_; ///< those that the product describes
    QTimer StatusBarRefreshTimer;
    bool comesFromOtherView_ = true; ///< when it gets the keyboard the next time
    Subscription elementClicked_;
    Subscription nodeClicked_;
};

}
