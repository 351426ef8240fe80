#include "shell/CTranslationCatalogue.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

QStringList CTranslationCatalogue::directories()
{
    const QString program = QCoreApplication::applicationDirPath();
    return {program + "/languages", program + "/../share/tornik/languages"};
}

bool CTranslationCatalogue::load(QTranslator& translator, const QLocale& locale,
                                 const QStringList& directories)
{
    // By its name: the system's locale also brings further languages of the user, and a German one
    // with English behind it must not find the English catalogue.
    const QLocale named(locale.name());
    for (const QString& directory : directories) {
        if (translator.load(named, "Tornik", "_", directory))
            return true;
    }
    return false;
}
