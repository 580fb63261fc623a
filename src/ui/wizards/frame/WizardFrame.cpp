#include "ui/wizards/frame/WizardFrame.h"

#include "base/Error.h"
#include "base/ExitRequest.h"
#include "base/Restored.h"
#include "comm/Errors.h"
#include "config/IProgress.h"
#include "config/PendingEdits.h"
#include "shell/Document.h"
#include "ui/wizards/frame/WizardElements.h"

#include <utility>

namespace tarvex {

namespace {

/// Takes the place of a window that has gone: the controller keeps the last place it was given.
class NoProgress : public IProgress {
    void IProgress_SetRange(std::int32_t, std::int32_t) override {}
    void IProgress_TickProgress(std::int32_t) override {}
    void IProgress_Show(bool) override {}
};

}

WizardFrame::WizardFrame(IWizardView& self, IWizardFrameView& view, IWizardProduct& product, WizardServices services)
    : self_(self), view_(view), product_(product), services_(std::move(services)), description_(product.Describe()),
      link_(view_, product_, description_, services_, [this] { LinkRecovered(); }),
      files_(view_, product_, description_, services_)
{
    product_.Attach(*this);
    product_.Image().Attach(*this);
}

void WizardFrame::Attempt(const std::function<void()>& action)
{
    const int failuresBefore = link_.Failures();
    std::optional<Error> failure;
    try {
        action();
    } catch (const Error& error) {
        services_.errorLog.LogCurrentError();
        failure = error;
    }
    if (document_)
        document_->ShowRegisterValues();
    if (failure) // outside the handler: it may ask the user
        ShowFailure(*failure);
    else if (document_ && !link_.HasFailed() && link_.Failures() > failuresBefore)
        StillAnswers(); // the action has told of what failed
}

void WizardFrame::ShowFailure(const Error& failure)
{
    const std::int32_t number = failure.Number();
    const bool ofTransfer = number == kErrWriteFailed || number == kErrReadFailed || number == kErrNotConnected;
    if (!ofTransfer)
        return services_.prompts.Tell(failure.Description());
    if (document_ && !StillAnswers())
        return;
    if (document_ && number == kErrWriteFailed)
        ReadAgain();
    Say(failure.Description());
}

std::string WizardFrame::ViewName() const { return startCaption_.empty() ? description_.viewName : startCaption_; }

void WizardFrame::SetCaption(const std::string& caption)
{
    startCaption_ = caption;
    view_.ShowTitle(caption);
}

bool WizardFrame::Init(Document& document, const std::shared_ptr<IProduct>& product)
{
    document_ = &document;
    link_.Attach(document_);
    files_.Attach(document_);
    subscriptions_.clear();
    subscriptions_.push_back(document.CommLinkChanged.Subscribe([this](const auto&) { link_.BindDevice(); }));
    subscriptions_.push_back(
        document.controller().DataFileOpened.Subscribe([this](const std::string&, const std::string& path) {
            files_.Opened(path);
            fileLoaded_ = true;
            if (!appliesFile_) // another view has opened it, and loads it when the user says so
                product_.Image().Forget();
        }));
    subscriptions_.push_back(document.controller().CurrentProductChanged.Subscribe(
        [this](std::int32_t, std::int32_t, const std::string&) { product_.Image().Forget(); }));
    link_.BindDevice();
    elements_ = FindElements(document.controller(), services_.files, services_.state, description_.elements);
    view_.ShowElements(elements_);
    view_.EnableEntry("Undo", false);
    view_.EnableBar(false);
    current_.clear();
    return product_.Init(product);
}

void WizardFrame::SetCurrentProduct(const std::string& product)
{
    product_.SetCurrentProduct(product);
    if (current_.empty() && !link_.HasFailed())
        SelectAgain();
}

void WizardFrame::UpdateUI(std::int32_t kind, const std::string& name)
{
    Attempt([&] {
        if (document_ && product_.UpdateUI(kind, name))
            SelectAgain();
    });
}

void WizardFrame::Activated()
{
    for (const std::string& panel : description_.panels)
        view_.ShowPanel(panel, " ");
}

bool WizardFrame::ConfirmClose() { return !document_ || files_.ConfirmClose(); }

void WizardFrame::Unload()
{
    if (!document_)
        return;
    static NoProgress nowhere;
    document_->controller().SetProgressBar(&nowhere);
    Attempt([this] { product_.Unload(); });
    subscriptions_.clear();
    link_.Release();
    link_.Attach(nullptr);
    files_.Attach(nullptr);
    const auto device = std::exchange(document_, nullptr)->device();
    if (device)
        device->Disconnect();
}

void WizardFrame::NodeClicked(const std::string& key)
{
    Attempt([&] { product_.NodeClicked(key); });
}

void WizardFrame::Open()
{
    Attempt([this] {
        const auto path = files_.AskOpenName();
        if (path && MayDropEdits())
            OpenFile(*path);
    });
}

bool WizardFrame::ApplyFile(const std::string& path)
{
    fileLoaded_ = false;
    const Restored<bool> applies(appliesFile_, true);
    const auto forget = [this] {
        if (!fileLoaded_)
            return;
        product_.Image().DropEdits(); // what the board has not taken
        product_.Image().Forget();
    };
    try {
        const bool opened = product_.OpenFile(path);
        forget();
        return opened;
    } catch (...) {
        forget();
        throw;
    }
}

void WizardFrame::OpenFile(const std::string& path)
{
    const int before = link_.Failures();
    const bool opened = ApplyFile(path);
    const bool complete = link_.Failures() == before;
    if (!opened && complete)
        return; // the board is as it was
    if (link_.HasFailed()) {
        current_.clear(); // how much of the file the board holds is not known
        return view_.EnableBar(false);
    }
    SelectAgain();
    if (opened)
        product_.FileOpened();
    if (!complete)
        Say("Not everything in " + path + " reached the board. Open it again.");
    else
        Say("Opened file: " + path);
    TellOtherViews(kEverythingChanged, "");
}

void WizardFrame::Save()
{
    Attempt([this] { files_.Save(); });
}

void WizardFrame::SaveAs()
{
    Attempt([this] { files_.SaveAs(); });
}

void WizardFrame::Quit()
{
    if (!ConfirmClose() || (document_ && !document_->ConfirmCloseOfMainView()))
        return;
    Unload();
    ExitApplication(0);
}

void WizardFrame::OpenAdvancedView()
{
    Attempt([this] {
        if (!TheDocument().OpenView("AdvancedForm", &self_))
            return services_.prompts.Tell("Unable to open Advanced View.");
        TheDocument().UpdateAllViews(&self_, kEverythingChanged, "");
        if (!link_.HasFailed())
            EnsureLink(); // so that the registers hold what the board has
    });
}

Document& WizardFrame::TheDocument()
{
    if (!document_)
        RaiseRuntime(kErrInvalidCall, "Wizard::TheDocument");
    return *document_;
}

IConfigController& WizardFrame::Controller() { return TheDocument().controller(); }

std::string WizardFrame::PicturePath(const std::string& fileName) const
{
    return FindPicture(services_.files, services_.state, fileName);
}

bool WizardFrame::EnsureLink()
{
    if (!link_.EnsureLink())
        return false;
    product_.CatchUp();
    return true;
}

bool WizardFrame::StillAnswers()
{
    if (link_.StillAnswers())
        return true;
    link_.EnterFailureState();
    return false;
}

bool WizardFrame::Transfer(std::int32_t error, const std::string& source, const std::string& text,
                           const std::function<void()>& transfers)
{
    const auto busy = services_.beginBusy();
    if (!EnsureLink())
        return false;
    const auto kept = document_->device(); // stays while it is at work
    const int before = link_.Failures();
    transfers();
    if (link_.Failures() > before)
        Raise(error, source, text);
    return true;
}

bool WizardFrame::Write(const std::string& source, const std::string& what, const std::function<void()>& writes)
{
    if (!Transfer(kErrWriteFailed, source, "Failed to write " + what, writes))
        return false;
    files_.MarkDirty();
    return true;
}

bool WizardFrame::Read(const std::string& source, const std::string& what, const std::function<void()>& reads)
{
    return Transfer(kErrReadFailed, source, "Failed to read " + what, [&] {
        const PendingEdits kept(Controller());
        reads();
    });
}

bool WizardFrame::MayDropEdits()
{
    if (!TheDocument().MayDropEdits())
        return false;
    product_.Image().DropEdits();
    return true;
}

std::shared_ptr<void> WizardFrame::BeginProgress()
{
    IProgress& progress = view_.Progress();
    Controller().SetProgressBar(&progress);
    progress.Show(true);
    return {&progress, [](IProgress* shown) { shown->Show(false); }};
}

void WizardFrame::TellOtherViews(std::int32_t kind, const std::string& name)
{
    try {
        TheDocument().UpdateAllViews(&self_, kind, name);
    } catch (const Error&) {
        services_.errorLog.LogCurrentError(); // what another view cannot show does not undo what happened here
    }
}

}
