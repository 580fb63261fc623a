#include "ui/common/WindowTools.h"

#include "ui/common/Guarded.h"

namespace tarvex {

QString ToQt(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

std::string FromQt(const QString& text) { return text.toStdString(); }

bool CloseWindow(QWidget& window)
{
    return ThroughQt([&window] { return window.close(); });
}

void NameControl(QWidget& widget, const char* objectName, const QString& accessibleName)
{
    widget.setObjectName(QLatin1String(objectName));
    if (!accessibleName.isEmpty())
        widget.setAccessibleName(accessibleName);
}

}
