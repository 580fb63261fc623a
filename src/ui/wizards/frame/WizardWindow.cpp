#include "ui/wizards/frame/WizardWindow.h"

#include "base/ExitRequest.h"
#include "shell/Document.h"
#include "ui/advanced/VersionDlg.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"
#include "ui/wizards/frame/AdjustBar.h"
#include "ui/wizards/frame/ElementList.h"
#include "ui/wizards/frame/PictureTile.h"
#include "ui/wizards/frame/WizardMenus.h"
#include "ui/wizards/frame/WizardTree.h"

#include <QApplication>
#include <QCloseEvent>

#include <utility>

namespace tarvex {

namespace {

constexpr std::int32_t kHotKeysTopic = 3014;
constexpr int kMessageMilliseconds = 6000;

}

WizardWindow::WizardWindow(std::unique_ptr<IWizardProduct> product, WizardWindowServices services)
    : services_(services), product_(std::move(product)), frame_(*this, *this, *product_, FrameServices())
{
    setObjectName(ToQt(frame_.Description().windowName));
    ShowTitle(frame_.Description().designCaption);
    BuildMenus();
    BuildPage();
    BuildStatusBar();
    ConnectControls();
}

WizardWindow::~WizardWindow() = default;

WizardServices WizardWindow::FrameServices()
{
    return {services_.state,
            services_.files,
            services_.clock,
            services_.prompts,
            services_.errorLog,
            services_.wait,
            [this] { return std::make_shared<BusyGuard>(services_.busy); }};
}

void WizardWindow::BuildMenus()
{
    WizardMenuHandlers handlers;
    handlers.open = [this] { frame_.Open(); };
    handlers.save = [this] { frame_.Save(); };
    handlers.saveAs = [this] { frame_.SaveAs(); };
    handlers.quit = [this] { frame_.Quit(); };
    handlers.undo = [this] { frame_.Undo(); };
    handlers.advancedView = [this] { frame_.OpenAdvancedView(); };
    handlers.helpContents = [this] { services_.prompts.ShowHelp(std::nullopt); };
    handlers.hotKeys = [this] { services_.prompts.ShowHelp(kHotKeysTopic); };
    handlers.version = [this] { ShowVersion(); };
    handlers.product = [this](const std::function<void()>& chosen) {
        if (chosen)
            frame_.Attempt(chosen);
    };
    menus_ = std::make_unique<WizardMenus>(*menuBar(), services_.busy, frame_.Description(), std::move(handlers));
}

void WizardWindow::ConnectControls()
{
    elementClicked_ =
        ListView1->Clicked.Subscribe([this](const std::string& element) { frame_.ElementClicked(element); });
    nodeClicked_ = TreeView1->NodeClicked.Subscribe([this](const std::string& key) { frame_.NodeClicked(key); });
    QObject::connect(HScroll1, &AdjustBar::valueChanged, this, [this] {
        Guarded([this] {
            // A button of the bar that is held down repeats also while a transfer runs.
            services_.busy.WhenIdle("HScroll1", [this] { frame_.BarChanged(); });
        });
    });
    StatusBarRefreshTimer.setObjectName("StatusBarRefreshTimer");
    StatusBarRefreshTimer.setSingleShot(true);
    StatusBarRefreshTimer.setInterval(kMessageMilliseconds);
    QObject::connect(&StatusBarRefreshTimer, &QTimer::timeout, this, [this] { ShowMessage(""); });
}

bool WizardWindow::Init(IConfigController&, std::shared_ptr<IDevice>, Document& document,
                        std::shared_ptr<IProduct> product)
{
    return frame_.Init(document, product);
}

void WizardWindow::FocusView()
{
    raise();
    activateWindow();
}

void WizardWindow::Unload()
{
    hide();
    frame_.Unload();
}

void WizardWindow::ShowVersion()
{
    IDevice& device = frame_.Device();
    services_.state.firmwareVersionText = device.IsConnected() ? device.FirmwareVersion() : "";
    VersionDlg dialog(services_.state, this);
    ThroughQt([&] { return dialog.exec(); });
}

bool WizardWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        Activated();
    if (event->type() == QEvent::WindowDeactivate)
        comesFromOtherView_ = qobject_cast<const QMainWindow*>(QApplication::activeWindow()) != nullptr;
    return QMainWindow::event(event);
}

void WizardWindow::Activated()
{
    // Neither a box, nor help, nor another program is a change of the view.
    if (std::exchange(comesFromOtherView_, false))
        frame_.Activated();
}

void WizardWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Guarded([this] {
        if (!services_.busy.IsBusy())
            frame_.Quit();
    });
}

}
