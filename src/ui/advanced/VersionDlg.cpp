#include "ui/advanced/VersionDlg.h"

#include "base/Version.h"
#include "ui/common/WindowTools.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvex {

namespace {

constexpr const char* kLegalNotice = "Copyright (c) 2026 The Tarvex developers. MIT licence.";

void AddLine(QDialog& dialog, const char* name, const QString& text)
{
    auto* label = new QLabel(text, &dialog);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    NameControl(*label, name, text);
    dialog.layout()->addWidget(label);
}

}

VersionDlg::VersionDlg(const ProgramState& state, QWidget* parent) : QDialog(parent)
{
    setObjectName("VersionDlg");
    setWindowTitle("Version Info");
    auto* column = new QVBoxLayout(this);
    AddLine(*this, "LBL_Title", "Tarvex " + ToQt(AppVersionString()));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    findChild<QLabel*>("LBL_Title")->setFont(large);
    AddLine(*this, "LBL_Built", ToQt("Built: " + BuildDateText()));
    AddLine(*this, "LBL_Copyright", kLegalNotice);
    const auto orNone = [](const std::string& text) { return text.empty() ? std::string("not connected") : text; };
    AddLine(*this, "LBL_LibVersion", ToQt("Serial network library: " + orNone(state.libraryVersionText)));
    AddLine(*this, "LBL_FirmwareVersion", ToQt("Board firmware: " + orNone(state.firmwareVersionText)));
    AddLine(*this, "LBL_InitFileVersion", ToQt(state.g_initFileInfo));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("BTN_OK");
    column->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
}

}
