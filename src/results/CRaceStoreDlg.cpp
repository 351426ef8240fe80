#include "results/CRaceStoreDlg.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int NameLength = 120;
constexpr int NameWidth = 256;
constexpr int SpaceOverButtons = 20;

} // namespace

CRaceStoreDlg::CRaceStoreDlg(QWidget* parent)
    : QDialog(parent),
      m_nameEdit(new QLineEdit(this)),
      m_csvBox(new QCheckBox(tr("Als CSV Datei Speichern"), this)),
      m_databaseBox(new QCheckBox(tr("In Datenbank Speichern"), this)),
      m_storeButton(new QPushButton(tr("Rennen &speichern"), this)),
      m_cancelButton(new QPushButton(tr("&Abbrechen"), this))
{
    setObjectName(QStringLiteral("raceStoreDialog"));
    setWindowTitle(tr("Rennen speichern"));
    nameParts();
    m_storeButton->setDefault(true);
    m_nameEdit->setMaxLength(NameLength);
    m_nameEdit->setMaximumWidth(NameWidth);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Bitte geben Sie einen Namen für das Rennen ein. Das\n"
                                    "Rennen wird unter diesem Namen abgespeichert."),
                                 this));
    layout->addLayout(fields());
    layout->addSpacing(SpaceOverButtons);
    layout->addLayout(buttons());

    connect(m_storeButton, &QPushButton::clicked, this, &CRaceStoreDlg::accept);
    connect(m_cancelButton, &QPushButton::clicked, this, &CRaceStoreDlg::close);
}

void CRaceStoreDlg::nameParts()
{
    m_storeButton->setObjectName(QStringLiteral("storeButton"));
    m_cancelButton->setObjectName(QStringLiteral("cancelButton"));
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    m_csvBox->setObjectName(QStringLiteral("csvBox"));
    m_databaseBox->setObjectName(QStringLiteral("databaseBox"));
}

QLayout* CRaceStoreDlg::fields()
{
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Name des Rennens: "), this), 0, 0);
    grid->addWidget(m_nameEdit, 0, 1);
    grid->addWidget(m_csvBox, 1, 1);
    grid->addWidget(m_databaseBox, 2, 1);
    return grid;
}

QLayout* CRaceStoreDlg::buttons()
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_storeButton);
    row->addWidget(m_cancelButton);
    row->addStretch();
    return row;
}

QString CRaceStoreDlg::raceName() const
{
    return m_nameEdit->text().isEmpty() ? tr("Default") : m_nameEdit->text();
}

bool CRaceStoreDlg::storeAsCsv() const
{
    return m_csvBox->isChecked();
}

bool CRaceStoreDlg::storeInDatabase() const
{
    return m_databaseBox->isChecked();
}
