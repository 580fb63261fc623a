#pragma once

#include "platform/IUserPrompts.h"
#include "shell/UT_Output.h"

#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

namespace tarvex {

/// The window in which the self-test reports. Closing it, by its button or its frame, ends the program with code 0.
class UT_OutputWindow : public QWidget, public UT_Output {
public:
    explicit UT_OutputWindow(IUserPrompts& prompts);

    void SetProgressRange(std::int32_t count) override;
    void SetFileLink(const std::string& fileName) override;
    void AddReportLine(const std::string& text) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildControls();
    void ConnectControls();

    IUserPrompts& prompts_;
    std::string reportFile_;
    QProgressBar* ProgressBar1 = nullptr;
    QListWidget* LST_Output = nullptr;
    QPushButton* BTN_OpenFile = nullptr;
    QPushButton* Close = nullptr;
};

}
