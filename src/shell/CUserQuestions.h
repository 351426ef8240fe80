#ifndef TORNIK_SHELL_CUSERQUESTIONS_H
#define TORNIK_SHELL_CUSERQUESTIONS_H

class QString;
class QWidget;

/**
 * The message and file boxes that wait for the user. Whoever asks owns one; a test puts its own in
 * this one's place and answers.
 */
class CUserQuestions
{
public:
    CUserQuestions() = default;
    virtual ~CUserQuestions() = default;
    CUserQuestions(const CUserQuestions&) = delete;
    CUserQuestions& operator=(const CUserQuestions&) = delete;

    /** Yes is the default, no is what Esc and closing the box mean. @return whether it was yes */
    virtual bool ask(QWidget* parent, const QString& title, const QString& text, const QString& yes,
                     const QString& no);
    /** @return the name of the file to write; empty if the user cancelled. */
    virtual QString askSaveFileName(QWidget* parent, const QString& title, const QString& proposal,
                                    const QString& filter);
    /** @return the name of the file to read; empty if the user cancelled. */
    virtual QString askOpenFileName(QWidget* parent, const QString& title, const QString& filter);
    /** @return the path of a folder; empty if the user cancelled. */
    virtual QString askDirectory(QWidget* parent, const QString& title);
    /** @param text HTML */
    virtual void showAbout(QWidget* parent, const QString& title, const QString& text);
};

#endif
