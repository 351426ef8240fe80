#ifndef TORNIK_SHELL_CTRANSLATORS_H
#define TORNIK_SHELL_CTRANSLATORS_H

#include "shell/CTranslationCatalogue.h"

#include <QString>
#include <QTranslator>

class QLocale;

/**
 * Translates the texts of Qt's own boxes, such as those that choose a file or a colour. The names of the
 * keys stay as they are, because a shortcut reads the same in every language.
 */
class CQtTranslator : public QTranslator
{
    Q_OBJECT

public:
    /** Loads Qt's catalogue of a language. @return false if Qt's languages aren't installed: English then */
    bool loadLanguage(const QLocale& language);

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
};

/** The program's language, as long as this object lives. Main thread only; lives shorter than the
 * application. */
class CTranslators
{
public:
    /**
     * Loads the program's catalogue for a locale, and for Qt's boxes the language that the program then
     * speaks: German where there is no catalogue.
     */
    explicit CTranslators(const QLocale& locale,
                          const QStringList& directories = CTranslationCatalogue::directories());

private:
    Q_DISABLE_COPY(CTranslators)

    CQtTranslator m_boxes;
    QTranslator m_texts;
};

#endif
