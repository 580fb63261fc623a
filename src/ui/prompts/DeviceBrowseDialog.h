#pragma once

#include <QDialog>
#include <QListWidget>

#include <optional>
#include <string>

namespace tarvex {

/// Lets the user pick one of the devices that were discovered. Nothing is selected at first.
class DeviceBrowseDialog : public QDialog {
public:
    explicit DeviceBrowseDialog(QWidget* parent);

    /// Appends a name, before the dialog is shown.
    void AddDeviceName(const std::string& name);
    /// Position of the picked name; none when the dialog was cancelled or nothing is selected.
    std::optional<std::size_t> Selection() const;

private:
    QLayout* MakeButtons();

    QListWidget* List1;
};

}
