#include "dialogs/CQrCodeTab.h"

#include "dialogs/CFlagBox.h"
#include "dialogs/FormParts.h"

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

CQrCodeTab::CQrCodeTab(QWidget* parent)
    : QWidget(parent),
      m_enabled(new CFlagBox("qrCodeHandlingEnabled", tr("QR Code Erkennung aktivieren"),
                             &CSettings::qrCodeHandlingEnabled, &CSettings::setQrCodeHandlingEnabled, this)),
      m_cameraCaption(FormParts::label(tr("Kamera:"), this)),
      m_camera(new QComboBox(this))
{
    m_cameraCaption->setObjectName(QStringLiteral("cameraCaption"));
    m_camera->setObjectName(QStringLiteral("qrCodeHandlingCamera"));
    m_camera->setMinimumContentsLength(24);
    m_camera->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(m_enabled, &QCheckBox::stateChanged, this, &CQrCodeTab::handlingChanged);
    auto* explanation = FormParts::label(
        tr("Für alle Fahrzeuge und Fahrer können QR Codes erzeugt und ausgedruckt werden. Eine Webcam liest "
           "sie ein, so dass Fahrer und Fahrzeuge an den Anzeigen der Spuren ohne Tastatur ausgewählt "
           "werden."),
        this);
    explanation->setWordWrap(true);

    auto* cameraRow = FormParts::indented(m_cameraCaption);
    cameraRow->addWidget(m_camera, 1);
    auto* column = new QVBoxLayout(this);
    column->addWidget(explanation);
    column->addSpacing(FormParts::Indent);
    column->addWidget(m_enabled);
    column->addLayout(cameraRow);
    column->addStretch();
}

void CQrCodeTab::showSettings(const CSettings& settings, const QStringList& cameras)
{
    m_enabled->showSettings(settings);
    m_camera->clear();
    m_camera->addItems(cameras);
    m_camera->setCurrentText(settings.qrCodeHandlingCamera()); // the first one if that isn't there
}

void CQrCodeTab::storeSettings(CSettings& settings) const
{
    m_enabled->storeSettings(settings);
    settings.setQrCodeHandlingCamera(m_camera->currentText());
}

bool CQrCodeTab::isHandlingEnabled() const
{
    return m_enabled->checkState() != Qt::Unchecked;
}

void CQrCodeTab::enableCamera(bool on)
{
    m_cameraCaption->setEnabled(on);
    m_camera->setEnabled(on);
}
