#include "WindowProbe.h"

#include "WindowText.h"

#include <QApplication>
#include <QComboBox>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QTest>

namespace {

constexpr int Period = 50; // milliseconds

QPushButton* shownButton(const QString& name)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* button = qobject_cast<QPushButton*>(widget);
        if (button && button->isVisible() && (button->objectName() == name || button->text() == name))
            return button;
    }
    return nullptr;
}

} // namespace

WindowProbe::WindowProbe(const QString& fileName) : m_fileName(fileName)
{
    connect(&m_timer, &QTimer::timeout, this, &WindowProbe::look);
    m_timer.start(Period);
    connect(&m_network, &NetworkWatch::accepted, this, [this] { tellDashboard("accepted"); });
    connect(&m_network, &NetworkWatch::sent, this, [this](qint64 bytes) { tellDashboard("sent", bytes); });
    connect(&m_network, &NetworkWatch::received, this, [this] { tellDashboard("received"); });
    connect(&m_door, &QLocalServer::newConnection, this, &WindowProbe::takeVisitor);
    m_door.listen(m_fileName + ".socket");
}

void WindowProbe::look()
{
    const QWidget* window = WindowText::mainWindow();
    if (!window)
        return;
    noteMessage(*window);
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(WindowText::ofWindow(*window).join('\n').toUtf8());
    file.commit();
}

void WindowProbe::noteMessage(const QWidget& window)
{
    const auto* label = window.findChild<QLabel*>("additionalInfo");
    if (!label || label->text() == m_message)
        return;
    m_message = label->text();
    if (!m_message.isEmpty())
        m_messages.append(m_message);
}

void WindowProbe::takeVisitor()
{
    m_visitor = m_door.nextPendingConnection();
    connect(m_visitor, &QLocalSocket::readyRead, this, &WindowProbe::readCommands);
}

void WindowProbe::readCommands()
{
    while (m_visitor && m_visitor->canReadLine()) {
        const QJsonObject command = QJsonDocument::fromJson(m_visitor->readLine()).object();
        talk("answer", carryOut(command["command"].toString(), command["argument"].toString()));
    }
}

QStringList WindowProbe::carryOut(const QString& command, const QString& argument)
{
    QWidget* window = WindowText::mainWindow();
    if (!window)
        return {};
    if (command == "window")
        return WindowText::ofWindow(*window);
    if (command == "dashboard")
        return WindowText::ofDashboard(*window);
    if (command == "places")
        return WindowText::ofPlaces(*window);
    if (command == "messages")
        return m_messages;
    if (command == "boxes")
        return WindowText::ofBoxes();
    if (command == "keys")
        return pressKeys(argument);
    if (command == "hold" || command == "release")
        return workButton(argument, command == "hold");
    if (command == "choose")
        return choose(argument.section(' ', 0, 0), argument.section(' ', 1));
    if (command == "call")
        return callSlot(argument);
    if (command == "resize")
        return resize(argument.section('x', 0, 0).toInt(), argument.section('x', 1).toInt());
    if (command == "paint")
        return paint(argument);
    if (command == "paintNext")
        return paintNext(argument);
    return {};
}

QStringList WindowProbe::pressKeys(const QString& keys) const
{
    const int key = QKeySequence(keys)[0];
    QWidget* window = WindowText::mainWindow();
    window->activateWindow(); // shortcuts are those of the active window
    if (!QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }))
        return {};
    QTest::keyClick(window, Qt::Key(key & ~int(Qt::KeyboardModifierMask)),
                    Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
    return {"done"};
}

QStringList WindowProbe::workButton(const QString& name, bool down) const
{
    QPushButton* button = shownButton(name);
    if (!button)
        return {};
    if (down)
        QTest::mousePress(button, Qt::LeftButton);
    else
        QTest::mouseRelease(button, Qt::LeftButton);
    return {"done"};
}

QStringList WindowProbe::choose(const QString& boxName, const QString& entry) const
{
    auto* box = WindowText::mainWindow()->findChild<QComboBox*>(boxName);
    const int index = box ? box->findText(entry) : -1;
    if (index < 0)
        return {};
    box->setCurrentIndex(index);
    return {"done"};
}

QStringList WindowProbe::callSlot(const QString& name) const
{
    return QMetaObject::invokeMethod(WindowText::mainWindow(), name.toLatin1().constData())
               ? QStringList{"done"}
               : QStringList();
}

/** The platform's screen is smaller than any real one; a window needn't care. */
QStringList WindowProbe::resize(int width, int height) const
{
    WindowText::mainWindow()->resize(width, height);
    return {"done"};
}

QStringList WindowProbe::paint(const QString& fileName) const
{
    return WindowText::mainWindow()->grab().save(fileName) ? QStringList{"done"} : QStringList();
}

QStringList WindowProbe::paintNext(const QString& fileName)
{
    m_nextPicture = fileName;
    return {"done"};
}

void WindowProbe::tellDashboard(const QString& about, qint64 bytes)
{
    QWidget* window = WindowText::mainWindow();
    if (!m_visitor || !window)
        return;
    if (!m_nextPicture.isEmpty())
        paint(m_nextPicture);
    m_nextPicture.clear();
    talk(about, WindowText::ofDashboard(*window), bytes);
}

void WindowProbe::talk(const QString& about, const QStringList& lines, qint64 bytes)
{
    const QJsonObject line{
        {"about", about}, {"lines", QJsonArray::fromStringList(lines)}, {"bytes", double(bytes)}};
    m_visitor->write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    m_visitor->flush();
}

/** Qt loads it by QT_PLUGIN_PATH and QT_QPA_GENERIC_PLUGINS=windowprobe:FILE. */
class WindowProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "windowprobe.json")

public:
    QObject* create(const QString& /*name*/, const QString& file) override { return new WindowProbe(file); }
};

#include "WindowProbe.moc"
