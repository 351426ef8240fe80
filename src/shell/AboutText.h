#ifndef TORNIK_SHELL_ABOUTTEXT_H
#define TORNIK_SHELL_ABOUTTEXT_H

#include <QCoreApplication>

/** What the about box tells. */
class AboutText
{
    Q_DECLARE_TR_FUNCTIONS(AboutText)

public:
    static QString title();
    /** @return HTML, translated. */
    static QString html();

private:
    static QString link(const QString& address);
};

#endif
