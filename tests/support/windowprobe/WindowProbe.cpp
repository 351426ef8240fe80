#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGenericPlugin>
#include <QLabel>
#include <QMenuBar>
#include <QSaveFile>
#include <QTimer>

namespace {

constexpr int Period = 50; // milliseconds

void describeActions(const QList<QAction*>& actions, QStringList& lines)
{
    for (const QAction* action : actions) {
        if (!action->isVisible() || action->isSeparator())
            continue;
        lines.append(QStringLiteral("menu %1").arg(action->text()));
        if (action->menu())
            describeActions(action->menu()->actions(), lines);
    }
}

QStringList describe(const QWidget* window)
{
    QStringList lines{window->isFullScreen() ? QStringLiteral("window full screen")
                                             : QStringLiteral("window framed")};
    for (const QMenuBar* bar : window->findChildren<QMenuBar*>())
        describeActions(bar->actions(), lines);
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->isVisible())
            lines.append(QStringLiteral("label %1 %2").arg(label->objectName(), label->text()));
    }
    for (const QComboBox* box : window->findChildren<QComboBox*>()) {
        if (box->isVisible())
            lines.append(
                QStringLiteral("box %1 %2 %3")
                    .arg(box->objectName(), box->isEnabled() ? "free" : "locked", box->currentText()));
    }
    return lines;
}

} // namespace

/** Writes down again and again what the main window of a process shows. */
class WindowProbe : public QObject
{
    Q_OBJECT

public:
    explicit WindowProbe(const QString& fileName) : m_fileName(fileName)
    {
        connect(&m_timer, &QTimer::timeout, this, &WindowProbe::look);
        m_timer.start(Period);
    }

private:
    void look()
    {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != QLatin1String("mainDialog") || !window->isVisible())
                continue;
            QSaveFile file(m_fileName);
            if (file.open(QIODevice::WriteOnly)) {
                file.write(describe(window).join('\n').toUtf8());
                file.commit();
            }
        }
    }

    QString m_fileName;
    QTimer m_timer;
};

/**
 * Looks into a program that a test has started as a process of its own: Qt loads it by
 * QT_PLUGIN_PATH and QT_QPA_GENERIC_PLUGINS=windowprobe:FILE, and FILE then tells what the window
 * shows, one line each.
 */
class WindowProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "windowprobe.json")

public:
    QObject* create(const QString& /*name*/, const QString& file) override { return new WindowProbe(file); }
};

#include "WindowProbe.moc"
