#include "shell/CTranslators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <cstring>

bool CQtTranslator::loadLanguage(const QLocale& language)
{
    const QString directory = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    return load(QLocale(language.name()), "qtbase", "_", directory);
}

QString CQtTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                 int n) const
{
    if (std::strcmp(context, "QShortcut") == 0)
        return QString();
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

CTranslators::CTranslators(const QLocale& locale, const QStringList& directories)
{
    const bool isTranslated = CTranslationCatalogue::load(m_texts, locale, directories);
    m_boxes.loadLanguage(isTranslated ? locale : QLocale(QLocale::German));
    // The last one is asked first, and it is installed even without a catalogue.
    QCoreApplication::installTranslator(&m_boxes);
    QCoreApplication::installTranslator(&m_texts);
}
