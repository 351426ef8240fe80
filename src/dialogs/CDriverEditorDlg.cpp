#include "dialogs/CDriverEditorDlg.h"

#include "data/CDriver.h"
#include "dialogs/FormParts.h"
#include "shell/DialogStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CDriverEditorDlg::CDriverEditorDlg(QWidget* parent)
    : QDialog(parent), m_nameEdit(FormParts::nameEdit("driverName", this))
{
    setObjectName(QStringLiteral("driverEditorDialog"));
    setWindowTitle(tr("Fahrer Editor"));
    setStyleSheet(dialogStyleSheet());
    auto* ok = FormParts::button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = FormParts::button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CDriverEditorDlg::accept);
    connect(cancel, &QPushButton::clicked, this, &CDriverEditorDlg::close);

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(FormParts::label(tr("Fahrer Name:"), this));
    nameRow->addWidget(m_nameEdit);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(ok);
    buttonRow->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(nameRow);
    layout->addLayout(buttonRow);
}

int CDriverEditorDlg::newDriver(CDriver* driver)
{
    return edit(driver, QString());
}

int CDriverEditorDlg::editDriver(CDriver* driver)
{
    return edit(driver, driver ? driver->name() : QString());
}

int CDriverEditorDlg::edit(CDriver* driver, const QString& name)
{
    if (!driver)
        return Rejected;
    m_nameEdit->setText(name);
    m_nameEdit->selectAll();
    m_nameEdit->setFocus();
    const int result = exec();
    if (result == Accepted)
        driver->setName(m_nameEdit->text());
    return result;
}

/** Required: it tells of an acceptance without accepting, and nothing is connected to it. */
void CDriverEditorDlg::storeDriver()
{
    Q_EMIT accepted();
}
