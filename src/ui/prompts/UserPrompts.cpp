#include "ui/prompts/UserPrompts.h"

#include "base/Text.h"
#include "comm/dialogs/QueryProgress.h"
#include "ui/common/Guarded.h"
#include "ui/common/InputGate.h"
#include "ui/common/ModalRun.h"
#include "ui/common/WindowTools.h"
#include "ui/prompts/DeviceBrowseDialog.h"
#include "ui/prompts/FileFilters.h"
#include "ui/prompts/HelpViewer.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QUrl>

namespace tarvex {

namespace {

QMessageBox::Icon ToQtIcon(Icon icon)
{
    switch (icon) {
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ToQtButtons(const MessageBoxRequest& request)
{
    const QMessageBox::StandardButtons help = request.helpTopic ? QMessageBox::Help : QMessageBox::NoButton;
    switch (request.buttons) {
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No | help;
    case Buttons::RetryCancelHelp:
        return QMessageBox::Retry | QMessageBox::Cancel | QMessageBox::Help;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok | help;
}

QMessageBox::StandardButton DismissingButton(Buttons buttons)
{
    switch (buttons) {
    case Buttons::YesNo:
        return QMessageBox::No;
    case Buttons::RetryCancelHelp:
        return QMessageBox::Cancel;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

Answer ToAnswer(int button, Buttons buttons)
{
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Retry:
        return Answer::Retry;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    case QMessageBox::Ok:
        return Answer::Ok;
    default: // the box went without an answer
        return ToAnswer(DismissingButton(buttons), buttons);
    }
}

int RunBox(const MessageBoxRequest& request)
{
    const OwnedDialog<QMessageBox> box("MessageBox", ToQtIcon(request.icon), ToQt(request.title), ToQt(request.text),
                                       ToQtButtons(request), DialogParent());
    box->setTextFormat(Qt::PlainText); // texts carry paths and names, which may look like tags
    box->setEscapeButton(DismissingButton(request.buttons));
    if (request.returnAnswersNo)
        box->setDefaultButton(QMessageBox::No);
    return RunModal(*box);
}

/// The chosen path, or none when cancelled.
template <class Prepare> std::optional<std::string> RunFileDialog(const FileDialogRequest& request, Prepare prepare)
{
    const OwnedDialog<QFileDialog> dialog("FileDialog", DialogParent(), ToQt(request.title), ToQt(request.folder));
    dialog->setOption(QFileDialog::DontUseNativeDialog); // the same on every desktop
    dialog->setNameFilters(NameFilters(request.filter));
    prepare(*dialog);
    dialog->selectFile(ToQt(request.fileName));
    if (RunModal(*dialog) != QDialog::Accepted || !dialog.IsAlive())
        return std::nullopt;
    return FromQt(dialog->selectedFiles().value(0));
}

std::optional<std::string> ChooseSaveFile(const FileDialogRequest& request)
{
    return RunFileDialog(request, [&request](QFileDialog& dialog) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix(DefaultSuffix(request.defaultExtension));
        dialog.setOption(QFileDialog::DontConfirmOverwrite); // asked afterwards, in a box like all others
    });
}

/// The query-progress window, for as long as the search that it stands for keeps this.
class ShownQuery : public IQueryWindow {
public:
    ShownQuery()
    {
        window_->setWindowModality(Qt::ApplicationModal);
        InputGate::LetThrough(*window_);
        ThroughQt([this] {
            window_->show();
            window_->activateWindow();
        });
    }

    /// A window that went with its parent counts as given up: the program is ending.
    bool Cancelled() const override { return !window_.IsAlive() || window_->Cancelled(); }

private:
    OwnedDialog<QueryProgress> window_{"QueryProgress", DialogParent()};
};

}

UserPrompts::UserPrompts(std::string helpFile) : helpFile_(std::move(helpFile)) {}

UserPrompts::~UserPrompts() = default;

Answer UserPrompts::ShowMessage(const MessageBoxRequest& request)
{
    int button = RunBox(request);
    while (button == QMessageBox::Help) {
        OpenHelp(request.helpTopic, HelpWindow::InFront);
        button = RunBox(request);
    }
    return ToAnswer(button, request.buttons);
}

std::optional<std::string> UserPrompts::AskText(const std::string& question, const std::string& title,
                                                const std::string& proposal)
{
    const OwnedDialog<QInputDialog> dialog("InputBox", DialogParent());
    dialog->setWindowTitle(ToQt(title));
    dialog->setLabelText(ToQt(question));
    dialog->setTextValue(ToQt(proposal));
    if (auto* field = dialog->findChild<QLineEdit*>())
        NameControl(*field, "InputText", ToQt(question));
    if (RunModal(*dialog) != QDialog::Accepted || !dialog.IsAlive())
        return std::nullopt;
    return FromQt(dialog->textValue());
}

std::optional<std::string> UserPrompts::AskOpenFile(const FileDialogRequest& request)
{
    return RunFileDialog(request, [](QFileDialog& dialog) {
        dialog.setFileMode(QFileDialog::ExistingFile); // no suffix is added: a file without one can be opened, too
    });
}

std::optional<std::string> UserPrompts::AskSaveFile(const FileDialogRequest& request)
{
    auto path = ChooseSaveFile(request);
    while (path && QFileInfo::exists(ToQt(*path)) &&
           !Ask(*path + " already exists. Do you want to replace it?", request.title))
        path = ChooseSaveFile(request);
    return path;
}

std::optional<std::size_t> UserPrompts::BrowseForDevice(const std::vector<std::string>& entries)
{
    if (entries.empty())
        return std::nullopt;
    const OwnedDialog<DeviceBrowseDialog> dialog("DeviceBrowseDialog", DialogParent());
    for (const std::string& entry : entries)
        dialog->AddDeviceName(entry);
    RunModal(*dialog);
    return dialog.IsAlive() ? dialog->Selection() : std::nullopt;
}

std::unique_ptr<IQueryWindow> UserPrompts::ShowQueryProgress() { return std::make_unique<ShownQuery>(); }

void UserPrompts::ShowHelp(std::optional<std::int32_t> topic)
{
    OpenHelp(topic, QApplication::activeModalWidget() ? HelpWindow::InFront : HelpWindow::Beside);
}

void UserPrompts::OpenHelp(std::optional<std::int32_t> topic, HelpWindow where)
{
    if (!LoadHelp())
        return;
    helpViewer_->GoTo(topic);
    if (helpViewer_->isVisible() && helpViewer_->isModal())
        return;
    if (where == HelpWindow::InFront) {
        helpViewer_->hide(); // a window becomes modal only when it is shown anew
        RunModal(*helpViewer_);
        return;
    }
    helpViewer_->show();
    helpViewer_->raise();
    helpViewer_->activateWindow();
}

bool UserPrompts::LoadHelp()
{
    if (helpViewer_)
        return true;
    auto viewer = std::make_unique<HelpViewer>();
    if (!viewer->Open(helpFile_)) {
        const char* fault = QFileInfo::exists(ToQt(helpFile_)) ? " cannot be read." : " is missing.";
        Tell("The help file " + helpFile_ + fault + " Install Tarvex again, or put " +
                 std::string(FileNameOf(helpFile_)) + " back into that folder.",
             "Tarvex Help", Icon::Exclamation);
        return false;
    }
    helpViewer_ = std::move(viewer);
    return true;
}

void UserPrompts::OpenInEditor(const std::string& path)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path))))
        Tell("No program was found that opens " + path + ".", "Tarvex", Icon::Exclamation);
}

void UserPrompts::Beep() { QApplication::beep(); }

void UserPrompts::SetBusyPointer(bool busy)
{
    if (!busy && busyPointers_ == 0)
        return;
    busyPointers_ += busy ? 1 : -1;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

}
