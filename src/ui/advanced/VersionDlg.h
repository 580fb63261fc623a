#pragma once

#include "base/ProgramState.h"

#include <QDialog>

namespace tarvex {

/// The "Version Info" dialog: what is installed, for a question to the maker.
class VersionDlg : public QDialog {
public:
    explicit VersionDlg(const ProgramState& state, QWidget* parent = nullptr);
};

}
