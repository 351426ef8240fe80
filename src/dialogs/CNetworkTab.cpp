#include "dialogs/CNetworkTab.h"

#include "dialogs/CFlagBox.h"
#include "dialogs/FormParts.h"
#include "wizard/CStrictIntValidator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimeEdit>

namespace {

constexpr int HighestPort = 65535;
constexpr int PortDigits = 5;
constexpr int SecondsPerMinute = 60;
const QTime LongestWaitTime(0, 10);

} // namespace

CNetworkTab::CNetworkTab(QWidget* parent) : QWidget(parent)
{
    createControls();
    createLayout();
}

void CNetworkTab::createControls()
{
    m_port = new QLineEdit(this);
    m_port->setObjectName(QStringLiteral("port"));
    m_port->setMaxLength(PortDigits);
    m_port->setValidator(new CStrictIntValidator(0, HighestPort, m_port));
    m_port->setFixedWidth(m_port->fontMetrics().horizontalAdvance(QStringLiteral("000000000")));
    m_sendShutdown =
        new CFlagBox("sendShutdownToClients",
                     tr("Netzwerkanzeigerechner bei Programmende auf Host automatisch herunterfahren"),
                     &CSettings::sendShutdownToClients, &CSettings::setSendShutdownToClients, this);
    connect(m_sendShutdown, &QCheckBox::stateChanged, this, &CNetworkTab::sendShutdownChanged);
    m_waitTimeCaption = FormParts::label(tr("Wartezeit vor herunterfahren des Remote Rechners:"), this);
    m_waitTimeCaption->setObjectName(QStringLiteral("shutdownWaitTimeCaption"));
    m_waitTime =
        FormParts::timeEdit("shutdownWaitTime", QStringLiteral("mm:ss"), QTime(0, 0), LongestWaitTime, this);
    m_muted = new CFlagBox("clientsMuted", tr("Netzwerkanzeigen stumm schalten"), &CSettings::clientsMuted,
                           &CSettings::setClientsMuted, this);
}

void CNetworkTab::createLayout()
{
    auto* portRow = new QHBoxLayout;
    portRow->addWidget(FormParts::label(tr("Port:"), this));
    portRow->addWidget(m_port);
    portRow->addStretch();
    auto* waitRow = FormParts::indented(m_waitTimeCaption);
    waitRow->addWidget(m_waitTime);
    waitRow->addStretch();

    auto* column = new QVBoxLayout(this);
    column->addWidget(FormParts::label(tr("Diese Einstellungen sind relevant wenn der Tornik seine Anzeige "
                                          "auf einen <br>zweiten Rechner im Netzwerk übertragen soll.<br>"),
                                       this));
    column->addLayout(portRow);
    column->addWidget(m_sendShutdown);
    column->addLayout(waitRow);
    column->addWidget(m_muted);
    column->addStretch();
}

void CNetworkTab::showSettings(const CSettings& settings)
{
    m_port->setText(QString::number(settings.port()));
    m_sendShutdown->showSettings(settings);
    const int longest = QTime(0, 0).secsTo(LongestWaitTime);
    m_waitTime->setTime(QTime(0, 0).addSecs(qBound(0, settings.shutdownWaitTime(), longest)));
    m_muted->showSettings(settings);
}

void CNetworkTab::storeSettings(CSettings& settings) const
{
    settings.setPort(m_port->text().toUShort());
    m_sendShutdown->storeSettings(settings);
    const QTime wait = m_waitTime->time();
    settings.setShutdownWaitTime(wait.minute() * SecondsPerMinute + wait.second());
    m_muted->storeSettings(settings);
}

bool CNetworkTab::sendsShutdown() const
{
    return m_sendShutdown->checkState() != Qt::Unchecked;
}

void CNetworkTab::enableWaitTime(bool on)
{
    m_waitTimeCaption->setEnabled(on);
    m_waitTime->setEnabled(on);
}
