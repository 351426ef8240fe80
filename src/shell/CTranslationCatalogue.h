#ifndef TORNIK_SHELL_CTRANSLATIONCATALOGUE_H
#define TORNIK_SHELL_CTRANSLATIONCATALOGUE_H

#include <QStringList>

class QLocale;
class QTranslator;

/** Finds the translation of the program's texts. */
class CTranslationCatalogue
{
public:
    /** @return where the catalogues lie, best first: beside the executable, then where it is installed. */
    static QStringList directories();

    /**
     * Loads the catalogue of a locale from the first directory that has one.
     * @return false if there is none: the German texts of the source then stand
     */
    static bool load(QTranslator& translator, const QLocale& locale,
                     const QStringList& directories = CTranslationCatalogue::directories());
};

#endif
