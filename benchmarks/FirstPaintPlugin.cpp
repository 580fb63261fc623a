#include "support/driver/Protocol.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QGenericPlugin>
#include <QMap>
#include <QMenu>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

namespace tarvex {

/// Says on the driver's socket that the first window of an unmodified program has been painted. With TARVEX_CENSUS set
/// it first writes to that file how many widgets of each kind the program has, one a line.
class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstpaint.json")
public:
    QObject* create(const QString&, const QString&) override
    {
        QCoreApplication::instance()->installEventFilter(this);
        return new QObject;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::UpdateRequest && widget && widget->isWindow() && widget->isVisible()) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, this, [] { Tell(); }); // the request itself is being handled now
        }
        return false;
    }

private:
    static void Tell()
    {
        const QString census = qEnvironmentVariable("TARVEX_CENSUS");
        if (!census.isEmpty())
            WriteCensus(census);
        const std::string line = driver::ToLine({"ok", "painted"});
        [[maybe_unused]] const auto told = write(driver::kDescriptor, line.data(), line.size());
    }

    static QString KindOf(const QWidget* widget)
    {
        for (const char* kind : {"QLabel", "QLineEdit", "QPushButton", "QCheckBox", "QToolButton", "QScrollBar",
                                 "QProgressBar", "QMenu", "QStatusBar"}) {
            if (widget->inherits(kind))
                return kind;
        }
        return "QWidget";
    }

    static void WriteCensus(const QString& fileName)
    {
        QMap<QString, int> counts;
        const auto widgets = QApplication::allWidgets();
        for (const QWidget* widget : widgets) {
            ++counts[KindOf(widget) + (widget->isVisible() ? ":visible:" : ":hidden:")];
            if (const auto* menu = qobject_cast<const QMenu*>(widget))
                counts["QAction:visible:"] += static_cast<int>(menu->actions().size());
        }
        QFile file(fileName);
        file.open(QIODevice::WriteOnly);
        // Menus come before their entries.
        for (auto count = counts.constEnd(); count != counts.constBegin();) {
            --count;
            file.write((count.key() + QString::number(count.value()) + '\n').toUtf8());
        }
    }
};

}

#include "FirstPaintPlugin.moc"
