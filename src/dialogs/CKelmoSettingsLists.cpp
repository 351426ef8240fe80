// The part of CKelmoSettings that manages the lists. Each button acts at once.

#include "data/CCarList.h"
#include "data/CDriverList.h"
#include "data/CRacewayList.h"
#include "dialogs/CKelmoSettings.h"
#include "dialogs/CListTab.h"
#include "shell/CUserQuestions.h"
#include "wizard/CRacewayWizard.h"

#include <QPushButton>

namespace {

constexpr int RacewayNameColumn = 1; // of the short list

} // namespace

void CKelmoSettings::createRacewayTab()
{
    m_raceways = new CListTab("racewayTree", tr("Vorhandene Strecken:"), this);
    m_raceways->addNote(tr("Die aktuell ausgewählte Strecke ist mit \"x\" markiert."));
    const auto add = [this](const char* name, const QString& text, void (CKelmoSettings::*slot)()) {
        connect(m_raceways->addButton(name, text), &QPushButton::clicked, this, slot);
    };
    add("newRaceway", tr("&Neu"), &CKelmoSettings::vNewRaceway);
    add("editRaceway", tr("&Bearbeiten"), &CKelmoSettings::vEditRaceway);
    add("deleteRaceway", tr("&Löschen"), &CKelmoSettings::vDelRaceway);
    add("useRaceway", tr("Ben&utzen"), &CKelmoSettings::vSetCurrent);
    connect(m_raceways, &CListTab::rowDoubleClicked, this, &CKelmoSettings::vEditRaceway);
}

void CKelmoSettings::showLists()
{
    m_raceways->showList(m_racewayList->overviewModel());
}

bool CKelmoSettings::isDeletionWanted(const QString& title, const QString& question)
{
    return m_questions->ask(this, title, question, tr("&Ja"), tr("&Nein"));
}

void CKelmoSettings::vNewRaceway()
{
    CRaceway raceway;
    CRacewayWizard wizard(this);
    if (wizard.createRaceway(&raceway) != QDialog::Accepted)
        return;
    m_racewayList->addRaceway(raceway);
    m_raceways->showList(m_racewayList->overviewModel());
    m_raceways->selectRow(m_raceways->rowOfText(RacewayNameColumn, raceway.name));
}

void CKelmoSettings::vEditRaceway()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    CRaceway raceway = m_racewayList->racewayAt(row);
    CRacewayWizard wizard(this);
    if (wizard.editRaceway(&raceway) != QDialog::Accepted)
        return;
    m_racewayList->updateRaceway(row, raceway);
    m_raceways->showList(m_racewayList->overviewModel());
    m_raceways->selectRow(m_racewayList->rowOfId(raceway.id));
    Q_EMIT raceTrackChanged();
}

void CKelmoSettings::vDelRaceway()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    const QString name = m_racewayList->racewayAt(row).name;
    if (!isDeletionWanted(tr("Rennstrecke löschen"),
                          tr("Sind Sie sicher, dass Sie die Rennstrecke %1 löschen möchten?").arg(name)))
        return;
    m_racewayList->removeRaceway(row);
    m_raceways->showList(m_racewayList->overviewModel());
    Q_EMIT raceTrackChanged();
}

void CKelmoSettings::vSetCurrent()
{
    const int row = m_raceways->selectedRow();
    if (row == CListTab::NoRow)
        return;
    m_racewayList->setCurrentRow(row);
    m_raceways->showList(m_racewayList->overviewModel());
    m_raceways->selectRow(row);
    Q_EMIT raceTrackChanged();
}
