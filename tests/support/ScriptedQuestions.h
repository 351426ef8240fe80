#ifndef TORNIK_TESTS_SUPPORT_SCRIPTEDQUESTIONS_H
#define TORNIK_TESTS_SUPPORT_SCRIPTEDQUESTIONS_H

#include "shell/CUserQuestions.h"

#include <QStringList>

/** Answers in place of the user and writes down the questions. */
class CScriptedQuestions : public CUserQuestions
{
public:
    bool ask(QWidget*, const QString& title, const QString& text, const QString& yes,
             const QString& no) override
    {
        questions.append({title, text, yes, no});
        return answerIsYes;
    }
    QString askSaveFileName(QWidget*, const QString& title, const QString& proposal,
                            const QString& filter) override
    {
        questions.append({title, proposal, filter});
        return fileName;
    }
    QString askOpenFileName(QWidget*, const QString& title, const QString& filter) override
    {
        questions.append({title, filter});
        return fileName;
    }
    QString askDirectory(QWidget*, const QString& title) override
    {
        questions.append({title});
        return fileName;
    }
    void showAbout(QWidget*, const QString& title, const QString& text) override
    {
        questions.append({title, text});
    }

    bool answerIsYes = false;
    QString fileName;
    QList<QStringList> questions;
};

#endif
