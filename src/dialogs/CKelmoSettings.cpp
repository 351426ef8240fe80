#include "dialogs/CKelmoSettings.h"

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CListTab.h"
#include "dialogs/FormParts.h"
#include "shell/CSettings.h"
#include "shell/CUserQuestions.h"
#include "shell/DialogStyle.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>

CKelmoSettings::CKelmoSettings(CSettings* settings, QWidget* parent)
    : QDialog(parent), m_settings(settings), m_questions(std::make_unique<CUserQuestions>())
{
    setObjectName(QStringLiteral("settingsDialog"));
}

CKelmoSettings::~CKelmoSettings() = default;

void CKelmoSettings::setLists(std::unique_ptr<CRacewayList> raceways, std::unique_ptr<CCarList> cars,
                              std::unique_ptr<CDriverList> drivers)
{
    m_racewayList = std::move(raceways);
    m_carList = std::move(cars);
    m_driverList = std::move(drivers);
}

void CKelmoSettings::setUserQuestions(std::unique_ptr<CUserQuestions> questions)
{
    m_questions = std::move(questions);
}

int CKelmoSettings::run()
{
    if (!layout())
        createControls();
    m_settings->read(); // what an earlier opening changed and didn't store is gone
    showLists();
    return exec();
}

void CKelmoSettings::createControls()
{
    setWindowTitle(tr("Einstellungen"));
    setStyleSheet(dialogStyleSheet());
    createRacewayTab();
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->addTab(m_raceways, tr("Rennstrecken"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(createButtons());
}

QHBoxLayout* CKelmoSettings::createButtons()
{
    auto* ok = FormParts::button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = FormParts::button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CKelmoSettings::storeSettings);
    connect(cancel, &QPushButton::clicked, this, &CKelmoSettings::close);

    auto* row = new QHBoxLayout;
    row->addWidget(ok);
    row->addWidget(cancel);
    row->addStretch();
    return row;
}

void CKelmoSettings::storeSettings()
{
    m_settings->write();
    accept();
}
