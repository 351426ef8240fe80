#include "dialogs/CRaceStartDlg.h"

#include "dialogs/FormParts.h"
#include "shell/DialogStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CRaceStartDlg::CRaceStartDlg(QWidget* parent)
    : QDialog(parent), m_nameEdit(FormParts::nameEdit("raceName", this))
{
    setObjectName("raceStartDialog");
    setWindowTitle(tr("Wettkampf Rennen"));
    setStyleSheet(dialogStyleSheet());

    auto* startButton = new QPushButton(tr("Rennen &Starten"), this);
    startButton->setObjectName("startButton");
    startButton->setDefault(true);
    auto* cancelButton = new QPushButton(tr("&Abbrechen"), this);
    cancelButton->setObjectName("cancelButton");
    connect(startButton, &QPushButton::clicked, this, &CRaceStartDlg::accept);
    connect(cancelButton, &QPushButton::clicked, this, &CRaceStartDlg::close);

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel(tr("Name des Rennens: "), this));
    nameRow->addWidget(m_nameEdit);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addWidget(startButton);
    buttonRow->addWidget(cancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Bitte geben Sie einen Namen für das Rennen ein. Das\n"
                                    "Rennen wird unter diesem Namen abgespeichert."),
                                 this));
    layout->addLayout(nameRow);
    layout->addLayout(buttonRow);
}

int CRaceStartDlg::run(QString& raceName)
{
    m_nameEdit->setFocus();
    m_nameEdit->selectAll();
    const int result = exec();
    if (result == Accepted)
        raceName = m_nameEdit->text();
    return result;
}
