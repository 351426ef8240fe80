#include "shell/CUserQuestions.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

bool CUserQuestions::ask(QWidget* parent, const QString& title, const QString& text, const QString& yes,
                         const QString& no)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText); // a name in the text may look like markup
    QPushButton* yesButton = box.addButton(yes, QMessageBox::YesRole);
    box.setDefaultButton(yesButton);
    box.setEscapeButton(box.addButton(no, QMessageBox::NoRole));
    box.exec();
    return box.clickedButton() == yesButton;
}

QString CUserQuestions::askSaveFileName(QWidget* parent, const QString& title, const QString& proposal,
                                        const QString& filter)
{
    return QFileDialog::getSaveFileName(parent, title, proposal, filter);
}

QString CUserQuestions::askOpenFileName(QWidget* parent, const QString& title, const QString& filter)
{
    return QFileDialog::getOpenFileName(parent, title, QString(), filter);
}

QString CUserQuestions::askDirectory(QWidget* parent, const QString& title)
{
    return QFileDialog::getExistingDirectory(parent, title);
}

void CUserQuestions::showAbout(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox::about(parent, title, text);
}
