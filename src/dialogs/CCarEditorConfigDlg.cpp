#include "dialogs/CCarEditorConfigDlg.h"

#include "dialogs/FormParts.h"
#include "shell/DialogStyle.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int SpaceAboveButtons = 20;
constexpr int TitleWidth = 255;

} // namespace

CCarEditorConfigDlg::CCarEditorConfigDlg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("carEditorConfigDialog"));
    setWindowTitle(tr("Konfiguration des Fahrzeug Editor"));
    setStyleSheet(dialogStyleSheet());
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(createRows());
    layout->addStretch();
    layout->addSpacing(SpaceAboveButtons);
    layout->addLayout(createButtons());
    updateFreeFields();
}

QGridLayout* CCarEditorConfigDlg::createRows()
{
    auto* grid = new QGridLayout;
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        Row& row = m_rows[std::size_t(index)];
        const QString number = QString::number(index);
        row.show = new QCheckBox(this);
        row.show->setObjectName("showFreeField" + number);
        row.title = new QLineEdit(this);
        row.title->setObjectName("titleFreeField" + number);
        row.title->setMinimumWidth(TitleWidth);
        const QString fieldName = tr("Freifeld %1").arg(index + 1); // the user counts from 1
        FormParts::setPlaceholder(row.title, fieldName);
        row.show->setAccessibleName(fieldName);
        grid->addWidget(row.show, index, 0);
        grid->addWidget(row.title, index, 1, 1, 2);
        connect(row.show, &QCheckBox::stateChanged, this, &CCarEditorConfigDlg::updateFreeFields);
    }
    grid->setColumnStretch(1, 1);
    return grid;
}

QHBoxLayout* CCarEditorConfigDlg::createButtons()
{
    auto* ok = FormParts::button<QPushButton>("okButton", tr("&Ok"), this);
    auto* cancel = FormParts::button<QPushButton>("cancelButton", tr("&Abbrechen"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CCarEditorConfigDlg::accept);
    connect(cancel, &QPushButton::clicked, this, &CCarEditorConfigDlg::close);

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

int CCarEditorConfigDlg::editConfig(CCarEditorConfig* config)
{
    if (!config)
        return Rejected;
    showConfig(*config);
    m_rows.front().show->setFocus();
    const int result = exec();
    if (result == Accepted)
        storeConfig(*config);
    return result;
}

void CCarEditorConfigDlg::showConfig(const CCarEditorConfig& config)
{
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        const Row& row = m_rows[std::size_t(index)];
        row.show->setChecked(config.showFreeField(index));
        row.title->setText(config.titleFreeField(index));
    }
}

void CCarEditorConfigDlg::storeConfig(CCarEditorConfig& config) const
{
    for (int index = 0; index < CCarEditorConfig::NumberOfFields; ++index) {
        const Row& row = m_rows[std::size_t(index)];
        config.setShowFreeField(index, row.show->isChecked());
        config.setTitleFreeField(index, row.title->text());
    }
}

void CCarEditorConfigDlg::updateFreeFields()
{
    for (const Row& row : m_rows)
        row.title->setEnabled(row.show->isChecked());
}
