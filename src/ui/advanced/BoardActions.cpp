#include "ui/advanced/BoardActions.h"

#include "base/Error.h"
#include "base/Restored.h"
#include "comm/DemoDevice.h"
#include "config/MinInitVersion.h"
#include "model/Bitset.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"
#include "shell/Document.h"

#include <algorithm>

namespace tarvex {

BoardActions::UserAction::UserAction(BoardActions& actions) : actions_(actions), outer_(actions.inUserAction_)
{
    actions_.inUserAction_ = true;
    if (!outer_)
        actions_.readWanted_ = actions_.loadWanted_ = actions_.cancelled_ = false;
}

BoardActions::BoardActions(Document& document, IRegisterView& view, BoardActionServices services)
    : document_(document), controller_(document.controller()), view_(view), services_(std::move(services)),
      link_(document, services_.errorLog, services_.state.programFolder, services_.beginBusy),
      target_(view, services_.prompts)
{
    TarvexController& controller = document.controller();
    subscriptions_.push_back(controller.DeviceNamesChanged.Subscribe([this](const auto&) {
        ShowProducts();
        ShowLinks();
    }));
    subscriptions_.push_back(controller.CurrentProductChanged.Subscribe(
        [this](std::int32_t, std::int32_t, const std::string& product) { ProductChanged(product); }));
    subscriptions_.push_back(controller.DataFileOpened.Subscribe(
        [this](const std::string& product, const std::string& path) { FileOpened(product, path); }));
    subscriptions_.push_back(document.CommLinkChanged.Subscribe([this](const auto&) { LinkChanged(); }));
    subscriptions_.push_back(link_.Connected.Subscribe([this] { LinkConnected(); }));
    link_.BindDevice();
    ShowProducts();
    ShowLinks();
}

BoardActions::~BoardActions() = default;

void BoardActions::SelectProduct(const std::string& product)
{
    if (product == controller_.deviceName())
        return;
    if (secondaryView_)
        Tell(controller_.deviceName() + " stays in use while its window is open. Start Tarvex without that window to "
                                        "choose another product.");
    if (secondaryView_ || !MayDropEdits()) {
        ShowProducts(); // the mark stays on the product in use
        return;
    }
    const UserAction action(*this);
    if (!controller_.InitDevice(product))
        Raise(101, "AdvancedForm::ProductMenu_Click", "Invalid XML file.  Product " + product + " not found.");
    services_.state.g_minInitVersion = MinInitVersionForProduct(product);
    ChooseLinkForProduct(product);
    FinishAction();
}

void BoardActions::SelectLink(const std::string& link)
{
    const UserAction action(*this);
    const auto before = document_.device();
    const auto stoodTo = link_.ConnectedId();
    SwitchLink(link);
    const bool replaced = document_.device() != before;
    if (!link_.Device() || (!replaced && link_.DeviceType() != link))
        services_.statusLine.DisplayStatusMessage("The communication link " + link + " is not available.");
    else if (controller_.deviceName().empty() || !Aim())
        readWanted_ = false;
    else if (replaced ? !link_.IsConnected() : !link_.Connect()) // a new link was tried when it came
        Connecting();
    else
        readWanted_ = replaced || stoodTo != link_.ConnectedId(); // the board in use, chosen again, overwrites no edits
    ShowLinks();
    FinishAction();
}

bool BoardActions::OpenDataFile(const std::string& path)
{
    const UserAction action(*this);
    if (secondaryView_ && IsOfOtherProduct(path)) {
        const std::string reason = ", which stays in use while its window is open.";
        Tell(path + " holds no settings of " + controller_.deviceName() + reason);
        return false;
    }
    if (!controller_.InitDeviceFromFile(path)) {
        Tell("Unable to open file " + path + ". See TarvexError.log for details");
        return false;
    }
    FinishAction();
    return true;
}

bool BoardActions::MayDropEdits()
{
    const std::size_t edits = modified_ ? ChangedRegisters(controller_).size() : 0;
    return edits == 0 ||
           services_.prompts.AskBeforeLoss(std::to_string(edits) +
                                           (edits == 1 ? " changed register has" : " changed registers have") +
                                           " been neither loaded into the board nor saved. Discard the changes?");
}

void BoardActions::Saved(const std::string& path)
{
    fileName_ = path;
    modified_ = false;
    ShowFileTitle();
}

void BoardActions::ShowFileTitle() { view_.ShowTitle("Tarvex-Advanced View-" + fileName_); }

std::string BoardActions::SelectedProductName() const { return shownProduct_; }

void BoardActions::ProductChanged(const std::string& product)
{
    shownProduct_ = product;
    fileName_.clear();
    modified_ = false;
    lastReadIncomplete_ = false;
    view_.ShowTitle("Tarvex");
    view_.RealTime(false); // on another board nothing is written at once unasked
    view_.ShowRules(RulesForProduct(product));
    if (IsFixedAddressProduct(product))
        view_.ShowTarget("0x333", "1");
    if (const auto nodeId = target_.NodeId(); nodeId && link_.IsSerial())
        controller_.pid(*nodeId); // a wizard's start connects next
    FillGrid();
    ShowProducts();
    ShowLinks();
    view_.EnableTransfers(true);
    if (services_.preferences.autoConnect && inUserAction_)
        readWanted_ = true;
}

void BoardActions::LinkChanged()
{
    link_.BindDevice();
    ShowLinks();
    if (controller_.deviceName().empty() || !view_.IsViewVisible())
        return;
    services_.statusLine.DisplayStatusMessage("Changing underlying communication link.");
    view_.RealTime(false);
    readWanted_ = Aim() && inUserAction_;
    if (!cancelled_)
        link_.Connect();
}

void BoardActions::FileOpened(const std::string& product, const std::string& path)
{
    const bool firstProduct = shownProduct_.empty();
    const bool otherProduct = product != shownProduct_;
    shownProduct_ = product;
    fileName_ = path;
    modified_ = false;
    lastReadIncomplete_ = false;
    ShowFileTitle();
    FillGrid();
    ShowProducts();
    view_.EnableTransfers(true);
    if (otherProduct && inUserAction_) { // a wizard keeps its link
        services_.state.g_minInitVersion = MinInitVersionForProduct(product);
        ChooseLinkForProduct(product);
        readWanted_ = false; // a read would overwrite what the file holds
        services_.statusLine.DisplayStatusMessage(path + " holds settings of " + product + ".");
    }
    const bool isMeant = !otherProduct || (firstProduct && IsOnlyDeviceOfItsMap(product));
    loadWanted_ = inUserAction_ && services_.preferences.autoLoadFileOpen && isMeant;
}

/// False also for a file that cannot be used, which the opening finds.
bool BoardActions::IsOfOtherProduct(const std::string& path) const
{
    try {
        const TarvexData& files = *document_.initFile();
        return files.CheckFileVersion(path) && !files.CheckForProduct(path, controller_.deviceName());
    } catch (const Error&) {
        return false;
    }
}

/// A file does not tell the devices of one map apart.
bool BoardActions::IsOnlyDeviceOfItsMap(const std::string& product)
{
    TarvexController& controller = document_.controller();
    const std::string component = controller.GetComponentName(product);
    const auto devices = controller.GetComponentProductNames();
    return std::count_if(devices.begin(), devices.end(),
                         [&](const std::string& each) { return controller.GetComponentName(each) == component; }) == 1;
}

void BoardActions::ChooseLinkForProduct(const std::string& product)
{
    const ProductRules rules = RulesForProduct(product);
    view_.ShowRules(rules);
    const auto before = document_.device();
    const auto links = LinksOf(product);
    try {
        if (!rules.defaultLink.empty())
            SwitchLink(rules.defaultLink);
        if (links.size() == 1)
            SwitchLink(links.front());
    } catch (...) {
        link_.Release(); // the link to the board of the product before
        throw;
    }
    if (document_.device() == before)
        link_.Release();
    if (links.size() == 1 && !document_.HasLink(links.front()) && !document_.IsDemoMode())
        services_.statusLine.DisplayStatusMessage("The communication link " + links.front() + " is not available.");
    if (links.empty())
        services_.statusLine.DisplayStatusMessage("The init file names no communication link for " + product + ".");
    else if (links.size() > 1)
        services_.statusLine.DisplayStatusMessage(
            product + " supports multiple communication links.  Select one on the Communication menu to connect.");
    ShowLinks();
}

void BoardActions::DeviceRemoved(const std::string& text)
{
    if (!link_.IsGone())
        return;
    link_.Device()->Disconnect();
    document_.NotifyCommFailure(text);
}

void BoardActions::ShowProducts()
{
    std::vector<MenuChoice> products;
    try {
        for (const std::string& name : controller_.GetDeviceNames(kAllOptions, kRegisterProtocol))
            products.push_back({name, name == controller_.deviceName()});
    } catch (const Error&) {
        services_.errorLog.LogCurrentError(); // the menu says that there is none
    }
    view_.ShowProducts(products);
}

std::vector<std::string> BoardActions::LinksOf(const std::string& product)
{
    if (product.empty())
        return {};
    try {
        return controller_.GetCommLinkNames(product);
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
        return {}; // the board can still be shown
    }
}

void BoardActions::ShowLinks()
{
    if (document_.IsDemoMode() && link_.IsDemo()) {
        view_.ShowLinks({{kDemoDeviceType, true}});
        return;
    }
    std::vector<MenuChoice> links;
    for (const std::string& name : LinksOf(controller_.deviceName()))
        links.push_back({name, name == (link_.IsDemo() ? kDemoLink : link_.DeviceType())});
    view_.ShowLinks(links);
}

void BoardActions::Showing(const std::function<void()>& show)
{
    const Restored<bool> showing(showing_, true);
    show();
}

void BoardActions::ShowValues()
{
    Showing([this] { view_.ShowAllValues(); });
}

void BoardActions::FillGrid()
{
    Showing([this] { view_.FillGrid(); });
    ready_ = true;
}

void BoardActions::FinishAction()
{
    const bool read = readWanted_ && view_.IsViewVisible();
    const bool load = loadWanted_ && view_.IsViewVisible();
    readWanted_ = loadWanted_ = false;
    if (read && MayDropEdits())
        ReadIfLinkAnswers();
    else if (read)
        KeepEdits();
    else if (load)
        LoadConfiguration();
}

/// The user connects in order to load what he edited before.
void BoardActions::KeepEdits()
{
    lastReadIncomplete_ = true;
    services_.statusLine.DisplayStatusMessage(
        "The board was not read. Load Configuration writes the changed registers.");
}

void BoardActions::ShowChange(std::int32_t kind, const std::string& name)
{
    if (name.empty())
        return;
    if (kind == kRegisterChanged)
        ShowRegister(name);
    if (kind == kPropertyChanged) {
        std::vector<std::string> names;
        const auto property = controller_.GetPropertyByName(name);
        if (property->BitsetCount() > 0)
            property->GetConstituents(names);
        std::for_each(names.begin(), names.end(), [this](const std::string& each) { ShowRegister(each); });
    }
}

void BoardActions::ShowRegister(const std::string& name)
{
    const std::int16_t position = controller_.GetI2CRegisterIndex(name);
    if (position >= 0)
        Showing([&] { view_.ShowValue(position); });
}

void BoardActions::Tell(const std::string& text)
{
    if (view_.IsViewVisible())
        services_.prompts.Tell(text);
    else
        services_.statusLine.DisplayStatusMessage(text);
}

}
